// What the program asks of libcurl for each kind of request, and what it leaves at libcurl's own values: the names and
// certificates that are checked, the proxies, the versions of TLS.
#include "kit/wire/libcurl_seams.h"
#include "kit/wire/net_test.h"
#include "net/chain_service.h"
#include "paymail/discovery.h"
#include "site/site_request.h"

namespace {

using testing::Pair;
using testing::UnorderedElementsAre;

constexpr char kUrl[] = "https://brasslet.test/x";

class LibcurlOptions : public NetTest {};

}  // namespace

TEST_F(LibcurlOptions, OfASiteRequestWithAllThatItCanCarry)
{
    site_request("DELETE", kUrl, SecretText("{}"), "u", SecretText("p"));
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
    site_request("GET", kUrl, {}, {}, SecretText("p"));
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
    post_json(kUrl, "{}", std::chrono::seconds(7), 1);
    EXPECT_THAT(
        options_set(),
        UnorderedElementsAre(Pair(CURLOPT_URL, 0), Pair(CURLOPT_PROTOCOLS_STR, 0), Pair(CURLOPT_REDIR_PROTOCOLS_STR, 0),
                             Pair(CURLOPT_FOLLOWLOCATION, 0), Pair(CURLOPT_MAXREDIRS, 0),
                             Pair(CURLOPT_CUSTOMREQUEST, 0), Pair(CURLOPT_POSTFIELDS, 0), Pair(CURLOPT_HTTPHEADER, 0),
                             Pair(CURLOPT_USERAGENT, 0), Pair(CURLOPT_CONNECTTIMEOUT_MS, 8'000),
                             Pair(CURLOPT_TIMEOUT_MS, 7'000), Pair(CURLOPT_SSL_OPTIONS, CURLSSLOPT_REVOKE_BEST_EFFORT),
                             Pair(CURLOPT_WRITEFUNCTION, 0), Pair(CURLOPT_WRITEDATA, 0)));
}

// One place sets it, so one kind of request stands for all of them: a revoked certificate is refused, a list of revoked
// ones that cannot be fetched is no refusal.
TEST_F(LibcurlOptions, NothingIsSentThatWouldAskForRevocationInAnotherWay)
{
    refuse_option(CURLOPT_SSL_OPTIONS);
    EXPECT_EQ(exchange(json_post(kUrl, "{}", std::chrono::seconds(7))).error, curl_easy_strerror(CURLE_UNKNOWN_OPTION));
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(LibcurlOptions, OfADiscoveryGetThatHasTwelveSecondsInAll)
{
    discovery_get(kUrl);
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
