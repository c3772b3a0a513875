#include "wallet_bridge/wallet_identity.h"

#include "build_values.h"
#include "kit/wallet_files.h"
#include "platform/files.h"
#include "text/json.h"
#include "wallet/wallet_keys.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/wallet_events.h"
#include "wallet_bridge/wallet_list.h"

#include <gtest/gtest.h>

namespace {

const char* const kWallet = "wallets/1/wallet.json";
const char* const kHouse = "corvane_paymail.json";
const std::string kAtDomain = std::string("@") + kHouseDomain;
// The generator of secp256k1 (SEC 2) and its address: the keys of the private key 1.
const std::string kOne = "0000000000000000000000000000000000000000000000000000000000000001";
const std::string kGenerator = "0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798";
const std::string kGeneratorAddress = "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH";

WalletKeys keys_of_test_phrase()
{
    return derive_wallet_keys(SecretText(kPhrase), 0, 0).value();
}

nlohmann::json house(const TestFolder& folder)
{
    return parse_json(folder.read(kHouse));
}

std::vector<std::string> events_of_refresh()
{
    std::vector<std::string> events;
    set_event_sink([&events](const std::string& line) { events.push_back(line); });
    refresh_identity();
    set_event_sink({});
    return events;
}

}  // namespace

TEST(WalletIdentity, OfAPhraseWalletItsIdentityKeyAndPaymentAddress)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    const WalletKeys keys = keys_of_test_phrase();
    EXPECT_TRUE(wallet_ready());
    EXPECT_EQ(identity_pubkey(), keys.identity_key);
    EXPECT_EQ(wallet_address(), keys.address);
    EXPECT_EQ(public_identity(), (PublicIdentity{keys.identity_key, keys.address}));
}

TEST(WalletIdentity, ASingleKeyWalletIsNotReadyYetHasKeyAndAddress)
{
    const TestFolder folder;
    bind_to_wallet(folder, {{"priv", kOne}, {"paymail", "ann"}});
    EXPECT_FALSE(wallet_ready());
    EXPECT_EQ(identity_pubkey(), kGenerator);
    EXPECT_EQ(wallet_address(), kGeneratorAddress);
    EXPECT_EQ(public_identity(), (PublicIdentity{kGenerator, kGeneratorAddress}));
    EXPECT_EQ(wallet_paymail(), "");
    EXPECT_TRUE(events_of_refresh().empty());
    EXPECT_EQ(list_wallets()[0].name, "Savings");
    EXPECT_FALSE(folder.has(kHouse));
}

TEST(WalletIdentity, EveryQueryReadsTheFileAfresh)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    EXPECT_TRUE(wallet_ready());
    folder.write(kWallet, "{");
    EXPECT_FALSE(wallet_ready());
    EXPECT_EQ(identity_pubkey(), std::nullopt);
    EXPECT_EQ(wallet_address(), std::nullopt);
    EXPECT_EQ(public_identity(), PublicIdentity());
    EXPECT_EQ(wallet_paymail(), "");
    EXPECT_TRUE(events_of_refresh().empty());
    folder.write(kWallet, phrase_wallet().dump());
    EXPECT_TRUE(wallet_ready());
}

TEST(WalletIdentity, BeforeTheStartNoWalletIsReady)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", phrase_wallet().dump());
    EXPECT_FALSE(wallet_ready());
}

TEST(WalletIdentity, WithNoWalletBoundTheOlderFileAnswersButIsNotReady)
{
    const TestFolder folder;
    bind_at_startup("x", "Brasslet");
    EXPECT_EQ(identity_pubkey(), std::nullopt);
    folder.write("corvane_vaultry.json", phrase_wallet().dump());
    EXPECT_FALSE(wallet_ready());
    EXPECT_EQ(identity_pubkey(), keys_of_test_phrase().identity_key);
    EXPECT_EQ(wallet_address(), keys_of_test_phrase().address);
    EXPECT_EQ(public_identity(), (PublicIdentity{keys_of_test_phrase().identity_key, keys_of_test_phrase().address}));
}

TEST(WalletIdentity, AStoredLabelIsRegisteredAndNamesTheWalletAndTheFileStaysAsItIs)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    const std::string text = folder.read(kWallet);
    EXPECT_EQ(wallet_paymail(), "ann" + kAtDomain);
    const WalletKeys keys = keys_of_test_phrase();
    EXPECT_EQ(house(folder)["names"]["ann"]["pubkey"], keys.identity_key);
    EXPECT_EQ(house(folder)["names"]["ann"]["address"], keys.address);
    EXPECT_EQ(house(folder)["self"], "ann");
    EXPECT_EQ(list_wallets()[0].name, "ann");
    EXPECT_EQ(folder.read(kWallet), text);
}

TEST(WalletIdentity, AStoredFullPaymailYieldsTheSameAsItsLabel)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", " @ann@elsewhere.example\n"}}));
    EXPECT_EQ(wallet_paymail(), "ann" + kAtDomain);
    EXPECT_EQ(list_wallets()[0].name, "ann");
}

TEST(WalletIdentity, AWalletWithoutALabelTakesItFromTheHouseLabelsFileAndKeepsIt)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    folder.write(kHouse, nlohmann::json{{"names", {{"bob", {{"pubkey", keys_of_test_phrase().identity_key}}}}}}.dump());
    EXPECT_EQ(wallet_paymail(), "bob" + kAtDomain);
    EXPECT_EQ(parse_json(folder.read(kWallet))["paymail"], "bob");
    EXPECT_EQ(list_wallets()[0].name, "bob");
}

TEST(WalletIdentity, AWalletThatHoldsNoLabelHasNoHousePaymail)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    EXPECT_EQ(wallet_paymail(), "");
    EXPECT_FALSE(folder.has(kHouse));
    EXPECT_EQ(list_wallets()[0].name, "Savings");
}

TEST(WalletIdentity, ALabelThatAnotherIdentityHoldsIsNeverThisWallets)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "Ann"}}));
    const std::string labels = R"({"names":{"ann":{"pubkey":"03cd"}},"self":"ann"})";
    folder.write(kHouse, labels);
    EXPECT_EQ(wallet_paymail(), "");
    EXPECT_TRUE(events_of_refresh().empty());
    EXPECT_EQ(folder.read(kHouse), labels);
    EXPECT_EQ(list_wallets()[0].name, "Savings");
    EXPECT_EQ(parse_json(folder.read(kWallet))["paymail"], "Ann");
}

TEST(WalletIdentity, ALabelBeyondTheQuotaIsNotThisWallets)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "eleventh"}}));
    nlohmann::json names;
    for (int i = 0; i < 10; ++i)
        names["label" + std::to_string(i)] = {{"pubkey", keys_of_test_phrase().identity_key}};
    folder.write(kHouse, nlohmann::json{{"names", names}}.dump());
    EXPECT_EQ(wallet_paymail(), "");
}

TEST(WalletIdentity, WhileTheHouseLabelsFileCannotBeReadNoLabelPassesAsTheWallets)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    const std::string text = folder.read(kWallet);
    folder.write("corvane_paymail.json/in the way", "");
    EXPECT_EQ(wallet_paymail(), "");
    EXPECT_EQ(wallet_identity()->house_paymail, "");
    EXPECT_EQ(folder.read(kWallet), text);
}

TEST(WalletIdentity, TheFirstQueryRecordsTheOrdinalsAddressWithTheLabel)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    ASSERT_EQ(wallet_paymail(), "ann" + kAtDomain);
    EXPECT_EQ(house(folder)["names"]["ann"]["ordAddress"], keys_of_test_phrase().ordinals_address);
}

TEST(WalletIdentity, RefreshingAnnouncesTheHousePaymailAndRecordsThePicture)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}, {"ord_avatar", "p_0"}}));
    EXPECT_EQ(events_of_refresh(), std::vector<std::string>{"[QX-VAULTRY]\x1fpaymail\x1f" + ("ann" + kAtDomain)});
    const std::string key = keys_of_test_phrase().identity_key;
    EXPECT_EQ(house(folder)["avatars"][key], "p_0");
    EXPECT_EQ(house(folder)["names"]["ann"]["avatar"], "p_0");
    folder.write(kWallet, phrase_wallet({{"paymail", "ann"}}).dump());
    refresh_identity();
    EXPECT_FALSE(house(folder)["avatars"].contains(key));
    EXPECT_FALSE(house(folder)["names"]["ann"].contains("avatar"));
}

TEST(WalletIdentity, QueriesAnnounceNothing)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    bool announced = false;
    set_event_sink([&announced](const std::string&) { announced = true; });
    wallet_paymail();
    wallet_ready();
    EXPECT_FALSE(announced);
}

TEST(PublicIdentity, IsCompleteWithAWholeKeyAndAnAddress)
{
    const std::string key(66, '0');
    EXPECT_TRUE((PublicIdentity{key, std::string(26, '1')}).is_complete());
    EXPECT_TRUE((PublicIdentity{key, std::string(34, '1')}).is_complete());
    EXPECT_FALSE((PublicIdentity{key, std::string(25, '1')}).is_complete());
    EXPECT_FALSE((PublicIdentity{key + "0", std::string(34, '1')}).is_complete());
    EXPECT_FALSE((PublicIdentity{key.substr(1), std::string(34, '1')}).is_complete());
    EXPECT_FALSE(PublicIdentity{}.is_complete());
}

TEST(WalletIdentity, OneQueryGivesAllThreeOfAReadyWallet)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    const WalletKeys keys = keys_of_test_phrase();
    const auto wallet = wallet_identity();
    ASSERT_TRUE(wallet);
    EXPECT_EQ(wallet->public_key, keys.identity_key);
    EXPECT_EQ(wallet->address, keys.address);
    EXPECT_EQ(wallet->house_paymail, "ann" + kAtDomain);
    EXPECT_EQ(house(folder)["self"], "ann");
}

TEST(WalletIdentity, OneQueryGivesNothingOfAWalletThatIsNotReady)
{
    const TestFolder folder;
    EXPECT_FALSE(wallet_identity());
    bind_to_wallet(folder, {{"priv", kOne}});
    EXPECT_FALSE(wallet_identity());
    folder.write(kWallet, "{");
    EXPECT_FALSE(wallet_identity());
}
