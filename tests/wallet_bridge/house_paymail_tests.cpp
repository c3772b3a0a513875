// The house paymail and the picture of a wallet, at the edges: odd labels, no label, no phrase, many threads.
#include "build_values.h"
#include "kit/wallet_files.h"
#include "text/json.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/house_labels.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/wallet_identity.h"
#include "wallet_bridge/wallet_list.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

const char* const kHouse = "corvane_paymail.json";
const std::string kAtDomain = std::string("@") + kHouseDomain;
const std::string kOne = "0000000000000000000000000000000000000000000000000000000000000001";

nlohmann::json house(const TestFolder& folder)
{
    return parse_json(folder.read(kHouse));
}

std::string loaded_paymail()
{
    HeldWallet held = hold_wallet();
    return held->wallet ? held->wallet->paymail : "no wallet";
}

void take_labels(const std::string& key, int count)
{
    for (int i = 0; i < count; ++i)
        EXPECT_EQ(register_house_label(key + "-" + std::to_string(i), key, {}), "");
}

}  // namespace

TEST(HousePaymail, IsOfTheStoredLetterCaseAndRegisteredInSmallLetters)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "$Ann.Lee@elsewhere.example"}}));
    EXPECT_EQ(wallet_paymail(), "Ann.Lee" + kAtDomain);
    EXPECT_EQ(loaded_paymail(), "Ann.Lee");
    EXPECT_EQ(list_wallets()[0].name, "Ann.Lee");
    EXPECT_TRUE(house(folder)["names"].contains("ann.lee"));
    EXPECT_EQ(house(folder)["self"], "ann.lee");
}

TEST(HousePaymail, AStoredLabelOfNoUsableLetterIsNone)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "\xE7\x94\xA8"}}));
    EXPECT_EQ(wallet_paymail(), "");
    EXPECT_FALSE(folder.has(kHouse));
    EXPECT_EQ(list_wallets()[0].name, "Savings");
}

TEST(HousePaymail, AStoredLabelOfNothingButMarksIsTakenFromTheHouseLabelsFile)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "@ "}}));
    ASSERT_EQ(register_house_label("bob", identity_pubkey().value_or(""), {}), "");
    EXPECT_EQ(wallet_paymail(), "bob" + kAtDomain);
}

TEST(HousePaymail, ThatIsRefusedIsForgotten)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    folder.write(kHouse, R"({"names":{"ann":{"pubkey":"03cd"}}})");
    EXPECT_EQ(wallet_paymail(), "");
    EXPECT_EQ(loaded_paymail(), "");
}

TEST(HousePaymail, NamesTheWalletOfTheBindRecordOnDisk)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1"},{"id":"2"}]})");
    folder.write("wallets/2/wallet.json", phrase_wallet({{"paymail", "ann"}}).dump());
    bind_at_startup(".", "Brasslet");
    EXPECT_FALSE(wallet_ready());
    folder.write("binds/_.json", R"({"wallet_id":"2"})");
    EXPECT_TRUE(wallet_ready());
    EXPECT_EQ(wallet_paymail(), "ann" + kAtDomain);
    EXPECT_EQ(wallet_display_name("1"), "1");
    EXPECT_EQ(wallet_display_name("2"), "ann");
}

TEST(HousePaymail, OfTheOlderFileIsFoundWithNoWalletBound)
{
    const TestFolder folder;
    bind_at_startup("x", "Brasslet");
    folder.write("corvane_vaultry.json", phrase_wallet({{"paymail", "ann"}}).dump());
    EXPECT_EQ(wallet_paymail(), "ann" + kAtDomain);
}

TEST(HousePaymail, APictureIsRecordedForAWalletWithoutALabel)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"ord_avatar", "p_0"}}));
    refresh_identity();
    EXPECT_EQ(house(folder)["avatars"][identity_pubkey().value_or("")], "p_0");
}

TEST(HousePaymail, APictureIsRecordedForASingleKeyWallet)
{
    const TestFolder folder;
    bind_to_wallet(folder, {{"priv", kOne}, {"ord_avatar", "p_0"}});
    refresh_identity();
    EXPECT_EQ(house(folder)["avatars"][identity_pubkey().value_or("")], "p_0");
}

TEST(HousePaymail, OfTheQueriesOnlyARefreshRecordsThePicture)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}, {"ord_avatar", "p_0"}}));
    wallet_paymail();
    EXPECT_FALSE(house(folder).contains("avatars"));
}

TEST(HouseLabels, ThreadsThatTakeLabelsLoseNone)
{
    const TestFolder folder;
    folder.write(kHouse, R"({"host_role":"architect"})");
    std::thread first(take_labels, "02ab", 20);
    std::thread second(take_labels, "03cd", 20);
    first.join();
    second.join();
    EXPECT_EQ(house(folder)["names"].size(), 40U);
}
