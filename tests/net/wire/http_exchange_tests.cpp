#include "net/http_exchange.h"

#include "kit/wire/libcurl_seams.h"
#include "kit/wire/net_test.h"
#include "net/chain_service.h"
#include "paymail/discovery.h"
#include "site/site_request.h"

#include <curl/curl.h>

#include <unistd.h>

namespace {

class Exchange : public NetTest {
protected:
    static HttpRequest request(const std::string& url)
    {
        HttpRequest made;
        made.url = url;
        return made;
    }
};

}  // namespace

TEST_F(Exchange, AStalledAnswerEndsWithTheTransferTimeout)
{
    server.answer("GET /x", {200, "", {}, Fault::stall});
    HttpRequest stalled = request("https://brasslet.test/x");
    stalled.transfer_timeout = std::chrono::milliseconds(300);
    const HttpReply reply = exchange(stalled);
    EXPECT_EQ(reply.error, curl_easy_strerror(CURLE_OPERATION_TIMEDOUT));
}

TEST_F(Exchange, AServerThatNeverShakesHandsEndsWithTheConnectTimeout)
{
    const int silent = listener_on("127.0.0.2");
    HttpRequest unmet = request("https://other.test/x");
    unmet.connect_timeout = std::chrono::milliseconds(300);
    EXPECT_EQ(exchange(unmet).error, curl_easy_strerror(CURLE_OPERATION_TIMEDOUT));
    close(silent);
}

TEST_F(Exchange, FollowsNoRedirectUnlessAskedToAndSaysWhereItLeads)
{
    server.answer("GET /a/x", redirect_to("../y?z=1"));
    const HttpReply reply = exchange(request("https://brasslet.test/a/x"));
    EXPECT_EQ(reply.status, 302);
    EXPECT_EQ(reply.body, "moved");
    EXPECT_EQ(reply.error, "");
    EXPECT_EQ(reply.redirect_url, "https://brasslet.test/y?z=1");
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(Exchange, PlainHttpIsNeverSpoken)
{
    EXPECT_EQ(exchange(request("http://brasslet.test/")).error, curl_easy_strerror(CURLE_UNSUPPORTED_PROTOCOL));
    EXPECT_EQ(exchange(request("file:///etc/hosts")).error, curl_easy_strerror(CURLE_UNSUPPORTED_PROTOCOL));
}

TEST_F(Exchange, ARedirectThatIsFollowedNeverLeavesHttps)
{
    server.answer("GET /x", redirect_to("http://brasslet.test/y"));
    HttpRequest redirected = request("https://brasslet.test/x");
    redirected.redirects = 4;
    EXPECT_EQ(exchange(redirected).error, curl_easy_strerror(CURLE_UNSUPPORTED_PROTOCOL));
}

TEST_F(Exchange, NothingIsSentWithLessProtectionThanWasAskedFor)
{
    refuse_option(CURLOPT_REDIR_PROTOCOLS_STR);
    EXPECT_EQ(exchange(request("https://brasslet.test/x")).error, curl_easy_strerror(CURLE_UNKNOWN_OPTION));
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Exchange, ReportsAMissingHandle)
{
    refuse_handles();
    EXPECT_EQ(exchange(request("https://brasslet.test/")).error, "curl init failed");
}

TEST_F(Exchange, SendsOnlyWhatIsAskedFor)
{
    EXPECT_EQ(exchange(request("https://brasslet.test/x")).error, "");
    EXPECT_THAT(server.requests(),
                testing::ElementsAre("GET /x HTTP/1.1\r\nHost: brasslet.test\r\nAccept: */*\r\n\r\n"));
}

TEST_F(Exchange, WhatLibcurlFreesIsWiped)
{
    ASSERT_TRUE(curl.is_started());
    char* copy = curl_easy_escape(nullptr, "secret", 0);
    const int before = wiped_blocks();
    curl_free(copy);
    EXPECT_EQ(wiped_blocks(), before + 1);
}

// The libcurl options of each kind of request, and those left at libcurl's defaults: checks of host name and
// certificate, proxies, TLS versions.

namespace {

using testing::Pair;
using testing::UnorderedElementsAre;

constexpr char kUrl[] = "https://brasslet.test/x";

class LibcurlOptions : public NetTest {};

}  // namespace

TEST_F(LibcurlOptions, OfASiteRequestWithAllThatItCanCarry)
{
    const HttpReply reply = site_request({"DELETE", kUrl, SecretText("{}"), {"u", SecretText("p")}});
    EXPECT_EQ(reply.status, 404);
    const long time = options_set().at(CURLOPT_TIMEOUT_MS);
    EXPECT_GT(time, 19'000);
    EXPECT_LE(time, 20'000);
    EXPECT_THAT(options_set(),
                UnorderedElementsAre(
                    Pair(CURLOPT_URL, 0), Pair(CURLOPT_PROTOCOLS_STR, 0), Pair(CURLOPT_REDIR_PROTOCOLS_STR, 0),
                    Pair(CURLOPT_FOLLOWLOCATION, 0), Pair(CURLOPT_MAXREDIRS, 0), Pair(CURLOPT_CUSTOMREQUEST, 0),
                    Pair(CURLOPT_POSTFIELDS, 0), Pair(CURLOPT_HTTPHEADER, 0), Pair(CURLOPT_HTTPAUTH, CURLAUTH_BASIC),
                    Pair(CURLOPT_USERPWD, 0), Pair(CURLOPT_USERAGENT, 0), Pair(CURLOPT_CONNECTTIMEOUT_MS, 8'000),
                    Pair(CURLOPT_TIMEOUT_MS, time), Pair(CURLOPT_SSL_OPTIONS, CURLSSLOPT_REVOKE_BEST_EFFORT),
                    Pair(CURLOPT_WRITEFUNCTION, 0), Pair(CURLOPT_WRITEDATA, 0)));
}

TEST_F(LibcurlOptions, OfASiteRequestWithNothing)
{
    const HttpReply reply = site_request({"GET", kUrl, {}, {{}, SecretText("p")}});
    EXPECT_EQ(reply.status, 404);
    EXPECT_THAT(options_set(),
                UnorderedElementsAre(
                    Pair(CURLOPT_URL, 0), Pair(CURLOPT_PROTOCOLS_STR, 0), Pair(CURLOPT_REDIR_PROTOCOLS_STR, 0),
                    Pair(CURLOPT_FOLLOWLOCATION, 1), Pair(CURLOPT_MAXREDIRS, 4), Pair(CURLOPT_CUSTOMREQUEST, 0),
                    Pair(CURLOPT_HTTPHEADER, 0), Pair(CURLOPT_USERAGENT, 0), Pair(CURLOPT_CONNECTTIMEOUT_MS, 8'000),
                    Pair(CURLOPT_TIMEOUT_MS, 20'000), Pair(CURLOPT_SSL_OPTIONS, CURLSSLOPT_REVOKE_BEST_EFFORT),
                    Pair(CURLOPT_WRITEFUNCTION, 0), Pair(CURLOPT_WRITEDATA, 0)));
}

TEST_F(LibcurlOptions, OfAJsonPost)
{
    const HttpReply reply = post_json({kUrl, "{}", std::chrono::seconds(7), 1});
    EXPECT_EQ(reply.status, 404);
    EXPECT_THAT(
        options_set(),
        UnorderedElementsAre(Pair(CURLOPT_URL, 0), Pair(CURLOPT_PROTOCOLS_STR, 0), Pair(CURLOPT_REDIR_PROTOCOLS_STR, 0),
                             Pair(CURLOPT_FOLLOWLOCATION, 0), Pair(CURLOPT_MAXREDIRS, 0),
                             Pair(CURLOPT_CUSTOMREQUEST, 0), Pair(CURLOPT_POSTFIELDS, 0), Pair(CURLOPT_HTTPHEADER, 0),
                             Pair(CURLOPT_USERAGENT, 0), Pair(CURLOPT_CONNECTTIMEOUT_MS, 8'000),
                             Pair(CURLOPT_TIMEOUT_MS, 7'000), Pair(CURLOPT_SSL_OPTIONS, CURLSSLOPT_REVOKE_BEST_EFFORT),
                             Pair(CURLOPT_WRITEFUNCTION, 0), Pair(CURLOPT_WRITEDATA, 0)));
}

// Set in one place, so one kind of request is enough: a revoked certificate is refused, a certificate whose revocation
// status cannot be fetched is accepted.
TEST_F(LibcurlOptions, NothingIsSentThatWouldAskForRevocationInAnotherWay)
{
    refuse_option(CURLOPT_SSL_OPTIONS);
    EXPECT_EQ(exchange(json_post({kUrl, "{}", std::chrono::seconds(7)})).error,
              curl_easy_strerror(CURLE_UNKNOWN_OPTION));
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(LibcurlOptions, OfADiscoveryGetThatHasTwelveSecondsInAll)
{
    [[maybe_unused]] const HttpReply reply = discovery_get(kUrl);
    const long time = options_set().at(CURLOPT_TIMEOUT_MS);
    EXPECT_GT(time, 0);
    EXPECT_LE(time, 12'000);
    EXPECT_THAT(options_set(),
                UnorderedElementsAre(Pair(CURLOPT_URL, 0), Pair(CURLOPT_PROTOCOLS_STR, 0),
                                     Pair(CURLOPT_REDIR_PROTOCOLS_STR, 0), Pair(CURLOPT_FOLLOWLOCATION, 0),
                                     Pair(CURLOPT_MAXREDIRS, 0), Pair(CURLOPT_USERAGENT, 0),
                                     Pair(CURLOPT_CONNECTTIMEOUT_MS, 0), Pair(CURLOPT_TIMEOUT_MS, time),
                                     Pair(CURLOPT_SSL_OPTIONS, CURLSSLOPT_REVOKE_BEST_EFFORT),
                                     Pair(CURLOPT_WRITEFUNCTION, 0), Pair(CURLOPT_WRITEDATA, 0)));
}
