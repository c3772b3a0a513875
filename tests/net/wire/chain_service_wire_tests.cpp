#include "net/chain_service.h"

#include "kit/wire/libcurl_seams.h"
#include "kit/wire/net_test.h"

#include <curl/curl.h>

namespace {

using std::chrono::milliseconds;

constexpr char kUrl[] = "https://brasslet.test/pay";
constexpr char kRateLimited[] =
    "HTTP 429 \xe2\x80\x93 WhatsOnChain is rate-limiting. Wait a few seconds and try again.";

class PostJson : public NetTest {
protected:
    HttpReply post(int attempts, const std::string& url = kUrl)
    {
        return post_json({url, R"({"a":1})", std::chrono::seconds(12), attempts},
                         [this](milliseconds time) { pauses.push_back(time); });
    }

    std::vector<milliseconds> pauses;
};

}  // namespace

TEST_F(PostJson, SendsItsHeadersInOrder)
{
    server.answer("POST /pay", {200, R"({"ok":1})", {}, Fault::none});
    const HttpReply reply = post(1);
    EXPECT_EQ(reply.error, "");
    EXPECT_EQ(reply.body, R"({"ok":1})");
    EXPECT_THAT(server.requests(), testing::ElementsAre("POST /pay HTTP/1.1\r\n"
                                                        "Host: brasslet.test\r\n"
                                                        "User-Agent: Corvane-Vaultry/0.1\r\n"
                                                        "Accept: */*\r\n"
                                                        "Content-Type: application/json\r\n"
                                                        "Content-Length: 7\r\n"
                                                        "\r\n"
                                                        "{\"a\":1}"));
}

TEST_F(PostJson, WithoutAnAttemptNothingIsSent)
{
    EXPECT_EQ(post(0).error, kRateLimited);
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(PostJson, AnEmptyAnswerOf200IsASuccess)
{
    server.answer("POST /pay", {200, "", {}, Fault::none});
    const HttpReply reply = post(1);
    EXPECT_EQ(reply.error, "");
    EXPECT_EQ(reply.body, "");
}

TEST_F(PostJson, EveryStatusUpTo299IsASuccess)
{
    server.answer("POST /pay", {{201, "", {}, Fault::none}, {299, "", {}, Fault::none}, {300, "", {}, Fault::none}});
    EXPECT_EQ(post(1).error, "");
    EXPECT_EQ(post(1).error, "");
    EXPECT_EQ(post(1).error, "HTTP 300");
}

TEST_F(PostJson, TriesAgainAfterOne429)
{
    server.answer("POST /pay", {{429, "slow", {}, Fault::none}, {200, "paid", {}, Fault::none}});
    const HttpReply reply = post(3);
    EXPECT_EQ(reply.error, "");
    EXPECT_EQ(reply.body, "paid");
    EXPECT_THAT(pauses, testing::ElementsAre(milliseconds(400)));
}

TEST_F(PostJson, TriesAgainAfterTwo429)
{
    server.answer("POST /pay",
                  {{429, "slow", {}, Fault::none}, {429, "slow", {}, Fault::none}, {200, "paid", {}, Fault::none}});
    EXPECT_EQ(post(3).body, "paid");
    EXPECT_THAT(pauses, testing::ElementsAre(milliseconds(400), milliseconds(800)));
}

TEST_F(PostJson, EveryPauseIsTwiceTheOneBefore)
{
    server.answer("POST /pay", {429, "slow", {}, Fault::none});
    EXPECT_EQ(post(5).error, kRateLimited);
    EXPECT_THAT(pauses,
                testing::ElementsAre(milliseconds(400), milliseconds(800), milliseconds(1'600), milliseconds(3'200)));
}

TEST_F(PostJson, TheCallingThreadSleepsInBetween)
{
    server.answer("POST /pay", {{429, "slow", {}, Fault::none}, {200, "paid", {}, Fault::none}});
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(post_json({kUrl, "{}", std::chrono::seconds(12), 2}).body, "paid");
    EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(400));
}

TEST_F(PostJson, GivesUpWithoutAPauseAfterTheLastAttempt)
{
    server.answer("POST /pay", {429, "slow", {}, Fault::none});
    EXPECT_EQ(post(3).error, kRateLimited);
    EXPECT_THAT(pauses, testing::ElementsAre(milliseconds(400), milliseconds(800)));
    EXPECT_EQ(server.requests().size(), 3U);
}

TEST_F(PostJson, OneAttemptMeansNoPause)
{
    server.answer("POST /pay", {429, "slow", {}, Fault::none});
    EXPECT_EQ(post(1).error, kRateLimited);
    EXPECT_TRUE(pauses.empty());
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(PostJson, AnyOtherStatusEndsItAtOnce)
{
    server.answer("POST /pay", {500, R"({"error":"x"})", {}, Fault::none});
    EXPECT_EQ(post(3).error, "HTTP 500 \xe2\x80\x93 {\"error\":\"x\"}");
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(PostJson, AnotherStatusAfterA429IsTheOneReported)
{
    server.answer("POST /pay", {{429, "slow", {}, Fault::none}, {404, "<!DOCTYPE html>", {}, Fault::none}});
    const HttpReply reply = post(3);
    EXPECT_EQ(reply.error, "HTTP 404");
    EXPECT_EQ(reply.body, "<!DOCTYPE html>");
}

TEST_F(PostJson, FollowsNoRedirect)
{
    server.answer("POST /pay", {302, "", {"Location: https://brasslet.test/other"}, Fault::none});
    EXPECT_EQ(post(1).error, "HTTP 302");
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(PostJson, ATransferThatFailsIsNotTriedAgain)
{
    server.answer("POST /pay", {429, "slow", {}, Fault::cut_body});
    EXPECT_EQ(post(3).error, curl_easy_strerror(CURLE_PARTIAL_FILE));
    EXPECT_EQ(post(3, "https://dead.brasslet.test/").error, curl_easy_strerror(CURLE_COULDNT_CONNECT));
    EXPECT_TRUE(pauses.empty());
}

TEST_F(PostJson, ACutAnswerOf200IsNoSuccess)
{
    server.answer("POST /pay", {200, "{}", {}, Fault::cut_body});
    EXPECT_EQ(post(1).error, curl_easy_strerror(CURLE_PARTIAL_FILE));
}

TEST_F(PostJson, ReportsAMissingHandle)
{
    refuse_handles();
    EXPECT_EQ(post(3).error, "curl init failed");
}

TEST_F(PostJson, ABodyOfMoreThanAMillionBytesIsNotTaken)
{
    server.answer("POST /pay", {200, std::string(1'000'001, 'a'), {}, Fault::none});
    EXPECT_EQ(post(1).error, curl_easy_strerror(CURLE_WRITE_ERROR));
}

TEST_F(PostJson, ChecksCertificatesOnTheOwnMachineToo)
{
    EXPECT_EQ(post(1, "https://localhost/pay").error, curl_easy_strerror(CURLE_PEER_FAILED_VERIFICATION));
    EXPECT_EQ(post(1, "https://127.0.0.1/pay").error, curl_easy_strerror(CURLE_PEER_FAILED_VERIFICATION));
    EXPECT_TRUE(server.requests().empty());
}
