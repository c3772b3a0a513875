#include "net/curl_owners.h"

#include "build_values.h"
#include "kit/wire/libcurl_seams.h"
#include "kit/wire/net_test.h"
#include "kit/wire/untouched.h"
#include "net/chain_service.h"

#include <cstdlib>

namespace {

// Name resolution gives an address where nothing listens; only the pinned address has the server.
class HostPin : public testing::Test {
protected:
    CurlLifetime curl;
    HttpsServer service{{"wallet.example", "www.wallet.example"}, Signer::test_authority, "192.0.2.10"};
};

std::string post(const std::string& url)
{
    return post_json({url, "{}", std::chrono::seconds(12), 1}).error;
}

std::vector<std::string> entries(const CurlList& list)
{
    std::vector<std::string> texts;
    for (const curl_slist* entry = list.get(); entry != nullptr; entry = entry->next)
        texts.emplace_back(entry->data);
    return texts;
}

}  // namespace

TEST_F(HostPin, ReachesTheWalletServiceOnlyAtItsFixedAddress)
{
    service.answer("POST /x", {200, "", {}, Fault::none});
    EXPECT_EQ(post("https://wallet.example/x"), "");
    EXPECT_EQ(post("https://www.wallet.example/x"), "");
    EXPECT_EQ(service.requests().size(), 2U);
}

TEST_F(HostPin, PinsBothFormsOfTheHostForAnyUrlThatMentionsIt)
{
    const std::string pin = std::string(kWalletServiceHost) + ":443:" + kWalletServiceAddress;
    const CurlEasy handle(curl_easy_init());
    for (const char* url : {"https://wallet.example/", "https://other.test/wallet.example",
                            "https://other.test/?q=wallet.example", "wallet.example"}) {
        CurlList pins;
        EXPECT_EQ(pin_hosts(handle.get(), url, pins), CURLE_OK) << url;
        EXPECT_THAT(entries(pins), testing::ElementsAre(pin, "www." + pin)) << url;
    }
}

TEST_F(HostPin, GoesOverIpv4OnlyWhereItPins)
{
    post("https://brasslet.test/x");
    EXPECT_THAT(options_set(), testing::Not(testing::Contains(testing::Key(CURLOPT_IPRESOLVE))));
    post("https://brasslet.test/x?wallet.example");
    EXPECT_THAT(options_set(), testing::Contains(testing::Pair(CURLOPT_IPRESOLVE, CURL_IPRESOLVE_V4)));
}

TEST_F(HostPin, PinsNothingForAnyOtherUrl)
{
    const CurlEasy handle(curl_easy_init());
    for (const char* url : {"", "wallet.exampl", "https://WALLET.EXAMPLE/", "https://brasslet.test/"}) {
        CurlList pins;
        EXPECT_EQ(pin_hosts(handle.get(), url, pins), CURLE_OK) << url;
        EXPECT_EQ(pins, nullptr) << url;
    }
    EXPECT_TRUE(options_set().empty());
}

TEST_F(HostPin, HoldsWhateverProxyTheEnvironmentNames)
{
    const Untouched proxy("127.0.0.2", 3128);
    service.answer("POST /x", {200, "", {}, Fault::none});
    for (const char* variable : {"https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY"}) {
        setenv(variable, "http://127.0.0.2:3128", 1);
        EXPECT_EQ(post("https://wallet.example/x"), "") << variable;
        unsetenv(variable);
    }
    EXPECT_EQ(service.requests().size(), 4U);
    EXPECT_TRUE(proxy.is_untouched());
}

TEST_F(HostPin, OtherRequestsGoThroughTheProxyOfTheEnvironment)
{
    const Untouched proxy("127.0.0.2", 3128);
    setenv("https_proxy", "http://127.0.0.2:3128", 1);
    HttpRequest request;
    request.url = "https://brasslet.test/x";
    request.transfer_timeout = std::chrono::milliseconds(300);
    request.pin_wallet_service = true;
    EXPECT_NE(exchange(request).error, "");
    EXPECT_FALSE(proxy.is_untouched());
}

TEST_F(HostPin, WhatCannotBePinnedIsNotSent)
{
    const Untouched elsewhere("127.0.0.9", 443);
    for (const CURLoption option : {CURLOPT_RESOLVE, CURLOPT_IPRESOLVE, CURLOPT_PROXY}) {
        refuse_option(option);
        EXPECT_EQ(post("https://wallet.example/x"), curl_easy_strerror(CURLE_UNKNOWN_OPTION)) << option;
    }
    EXPECT_TRUE(service.requests().empty());
    EXPECT_TRUE(elsewhere.is_untouched());
}

TEST_F(HostPin, NothingIsPinnedOrSentWithoutMemoryForThePins)
{
    const Untouched elsewhere("127.0.0.9", 443);
    refuse_lists_with("wallet.example:443:");
    EXPECT_EQ(post("https://wallet.example/x"), curl_easy_strerror(CURLE_OUT_OF_MEMORY));
    refuse_lists_with("www.wallet.example:443:");
    EXPECT_EQ(post("https://wallet.example/x"), curl_easy_strerror(CURLE_OUT_OF_MEMORY));
    EXPECT_TRUE(service.requests().empty());
    EXPECT_TRUE(elsewhere.is_untouched());
}
