#include "net/chain_service.h"

#include <gtest/gtest.h>

namespace {

constexpr char kRateLimited[] =
    "HTTP 429 \xe2\x80\x93 WhatsOnChain is rate-limiting. Wait a few seconds and try again.";

}  // namespace

TEST(ServiceError, SaysThatTheServiceIsRateLimiting)
{
    EXPECT_EQ(service_error(429, "slow down"), kRateLimited);
    EXPECT_EQ(service_error(429, ""), kRateLimited);
}

TEST(ServiceError, IsOnlyTheStatusForAPageOrNothing)
{
    EXPECT_EQ(service_error(404, "<!DOCTYPE html><p>"), "HTTP 404");
    EXPECT_EQ(service_error(502, "x <html>"), "HTTP 502");
    EXPECT_EQ(service_error(502, "<HTML"), "HTTP 502");
    EXPECT_EQ(service_error(500, ""), "HTTP 500");
    EXPECT_EQ(service_error(0, ""), "HTTP 0");
}

TEST(ServiceError, ShowsTheFirst120BytesOfAnyOtherBody)
{
    EXPECT_EQ(service_error(500, R"({"error":"x"})"), "HTTP 500 \xe2\x80\x93 {\"error\":\"x\"}");
    EXPECT_EQ(service_error(400, std::string(120, 'a')), "HTTP 400 \xe2\x80\x93 " + std::string(120, 'a'));
    EXPECT_EQ(service_error(400, std::string(121, 'a')), "HTTP 400 \xe2\x80\x93 " + std::string(120, 'a'));
    EXPECT_EQ(service_error(400, "<Html"), "HTTP 400 \xe2\x80\x93 <Html");
    EXPECT_EQ(service_error(400, "<htm"), "HTTP 400 \xe2\x80\x93 <htm");
    EXPECT_EQ(service_error(400, "<!doctype>"), "HTTP 400 \xe2\x80\x93 <!doctype>");
}

TEST(ServiceError, DropsBlanksAndLineEndsAtTheEndBeforeItCuts)
{
    EXPECT_EQ(service_error(500, " a\tb \r\n\n "), "HTTP 500 \xe2\x80\x93  a\tb");
    EXPECT_EQ(service_error(500, "a\t"), "HTTP 500 \xe2\x80\x93 a\t");
    EXPECT_EQ(service_error(500, " \r\n"), "HTTP 500 \xe2\x80\x93 ");
    EXPECT_EQ(service_error(500, std::string(119, 'a') + "  b"),
              "HTTP 500 \xe2\x80\x93 " + std::string(119, 'a') + " ");
}

TEST(PostJson, WithoutAnAttemptSaysRateLimitedAndSendsNothing)
{
    for (const int attempts : {0, -1}) {
        const HttpReply reply = post_json({"https://brasslet.test/", "{}", std::chrono::seconds(12), attempts});
        EXPECT_EQ(reply.error, kRateLimited);
        EXPECT_EQ(reply.status, 0);
    }
}

TEST(PostJson, PresentsItselfAsTheWalletApplication)
{
    const HttpRequest request = json_post({"https://brasslet.test/pay", "{\"a\":1}", std::chrono::seconds(12), 1});
    EXPECT_EQ(request.url, "https://brasslet.test/pay");
    EXPECT_EQ(request.body.text(), "{\"a\":1}");
    ASSERT_EQ(request.headers.size(), 1U);
    EXPECT_EQ(request.headers[0].text(), "Content-Type: application/json");
    EXPECT_EQ(request.user_agent, "Corvane-Vaultry/0.1");
    EXPECT_EQ(request.connect_timeout, std::chrono::seconds(8));
    EXPECT_EQ(request.transfer_timeout, std::chrono::seconds(12));
    EXPECT_EQ(request.redirects, 0);
    EXPECT_TRUE(request.check_certificate);
    EXPECT_TRUE(request.pin_wallet_service);
    EXPECT_TRUE(request.credentials.empty());
}
