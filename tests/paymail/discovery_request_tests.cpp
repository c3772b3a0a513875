#include "paymail/discovery.h"

#include <gtest/gtest.h>

namespace {

bool is_checked(const std::string& url)
{
    return discovery_request(url, std::chrono::seconds(12)).check_certificate;
}

}  // namespace

TEST(DiscoveryRequest, ChecksCertificatesOfEveryHostButTheOwnMachine)
{
    EXPECT_FALSE(is_checked("https://localhost/.well-known/bsvalias"));
    EXPECT_FALSE(is_checked("https://127.0.0.1/x"));
    for (const char* url :
         {"https://localhost.example.org/", "https://localhost@evil.example/", "https://127.0.0.1.evil.example/",
          "https://127.0.0.10/", "https://127.0.0.2/", "https://LOCALHOST.example/", "https://LOCALHOST/",
          "https://example.org/", "https://example.org/?https://localhost", "no url", ""})
        EXPECT_TRUE(is_checked(url)) << url;
}

TEST(DiscoveryRequest, PresentsItselfAsTheWalletApplicationAndKeepsToItsTime)
{
    const HttpRequest request = discovery_request("https://example.org/x", std::chrono::milliseconds(11'900));
    EXPECT_EQ(request.url, "https://example.org/x");
    EXPECT_EQ(request.user_agent, "Corvane-Vaultry/0.1");
    EXPECT_EQ(request.transfer_timeout, std::chrono::milliseconds(11'900));
    EXPECT_EQ(request.redirects, 0);
    EXPECT_TRUE(request.pin_wallet_service);
    EXPECT_TRUE(request.headers.empty());
    EXPECT_TRUE(request.body.empty());
    EXPECT_TRUE(request.credentials.empty());
}
