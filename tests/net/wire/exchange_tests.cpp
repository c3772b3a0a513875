#include "net/http_exchange.h"

#include "kit/wire/libcurl_seams.h"
#include "kit/wire/net_test.h"

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
    exchange(request("https://brasslet.test/x"));
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
