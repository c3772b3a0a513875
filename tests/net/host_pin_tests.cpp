#include "net/host_pin.h"

#include "net/chain_service.h"
#include "net/libcurl_seams.h"
#include "net/net_test.h"

#include "build_values.h"

namespace {

// The system's own name resolution leads to where nothing listens; only the fixed address has the server.
class HostPin : public testing::Test {
protected:
    CurlLifetime curl;
    HttpsServer service{{"wallet.example", "www.wallet.example"}, Signer::test_authority, "192.0.2.10"};
};

std::string post(const std::string& url)
{
    return post_json(url, "{}", std::chrono::seconds(12), 1).error;
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
                            "https://other.test/?q=wallet.example", "wallet.example"})
        EXPECT_THAT(entries(pin_hosts(handle.get(), url)), testing::ElementsAre(pin, "www." + pin)) << url;
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
    for (const char* url : {"", "wallet.exampl", "https://WALLET.EXAMPLE/", "https://brasslet.test/"})
        EXPECT_EQ(pin_hosts(handle.get(), url), nullptr) << url;
    EXPECT_EQ(pin_hosts(nullptr, "https://wallet.example/"), nullptr);
}
