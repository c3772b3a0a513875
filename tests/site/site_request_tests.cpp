#include "site/site_request.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

constexpr char kUrl[] = "https://brasslet.test/wp-json/brasslet/v1/name";

std::vector<std::string> header_texts(const HttpRequest& request)
{
    std::vector<std::string> texts;
    for (const SecretText& header : request.headers)
        texts.push_back(header.text());
    return texts;
}

}  // namespace

TEST(SiteRequest, ADeleteWithABodyAndALoginSaysAllOfIt)
{
    const HttpRequest request =
        describe_site_request({"DELETE", kUrl, SecretText("{}"), {"admin", SecretText("abcd efgh")}});
    EXPECT_EQ(request.url, kUrl);
    EXPECT_EQ(request.method, "DELETE");
    EXPECT_EQ(request.body.text(), "{}");
    EXPECT_EQ(request.credentials.text(), "admin:abcd efgh");
    EXPECT_THAT(header_texts(request),
                testing::ElementsAre("Accept: application/json", "Content-Type: application/json",
                                     "X-Brasslet-Auth: Basic YWRtaW46YWJjZCBlZmdo"));
}

TEST(SiteRequest, AGetWithoutABodyHasNoContentType)
{
    const HttpRequest request = describe_site_request({"GET", kUrl, {}, {"admin", SecretText("p")}});
    EXPECT_THAT(header_texts(request),
                testing::ElementsAre("Accept: application/json", "X-Brasslet-Auth: Basic YWRtaW46cA=="));
}

TEST(SiteRequest, AnEmptyUserSendsNoCredentialsEvenWithAPassword)
{
    const HttpRequest request = describe_site_request({"GET", kUrl, {}, {"", SecretText("secret")}});
    EXPECT_TRUE(request.credentials.empty());
    EXPECT_THAT(header_texts(request), testing::ElementsAre("Accept: application/json"));
}

TEST(SiteRequest, AnEmptyPasswordIsSentWithItsUser)
{
    const HttpRequest request = describe_site_request({"GET", kUrl, {}, {"admin", {}}});
    EXPECT_EQ(request.credentials.text(), "admin:");
}

TEST(SiteRequest, WaitsEightSecondsToConnectAndTwentyInAllAndFollowsFourRedirects)
{
    const HttpRequest request = describe_site_request({"GET", kUrl, {}, {"", {}}});
    EXPECT_EQ(request.connect_timeout, std::chrono::seconds(8));
    EXPECT_EQ(request.transfer_timeout, std::chrono::seconds(20));
    EXPECT_EQ(request.redirects, 4);
    EXPECT_EQ(request.user_agent, "Brasslet/0.001");
    EXPECT_TRUE(request.check_certificate);
    EXPECT_FALSE(request.pin_wallet_service);
}
