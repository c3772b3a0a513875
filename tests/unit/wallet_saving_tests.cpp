// When a loaded wallet is not written back, and what is read besides it.
#include "support/wallet_files.h"
#include "text/json.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/loaded_wallet.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

const char* const kWallet = "wallets/1/wallet.json";
const std::string kOne = "0000000000000000000000000000000000000000000000000000000000000001";

}  // namespace

TEST(WalletSaving, FailsWhenTheFileCannotBeWritten)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet());
    const std::string wallets = folder.path() + "/Corvane/wallets";
    ASSERT_GT(std::filesystem::remove_all(std::filesystem::path(std::u8string(wallets.begin(), wallets.end()))), 0U);
    folder.write("wallets", "in the way");
    EXPECT_FALSE(save_wallet());
    EXPECT_EQ(folder.read("wallets"), "in the way");
}

TEST(WalletSaving, LeavesAFileAloneThatAnotherProgramHasJustEmptied)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet());
    folder.write(kWallet, "");
    EXPECT_FALSE(save_wallet());
    EXPECT_TRUE(folder.has(kWallet));
    EXPECT_EQ(folder.read(kWallet), "");
}

TEST(WalletSaving, OfTheOlderFileRewritesIt)
{
    const TestFolder folder;
    bind_at_startup("x", "Brasslet");
    folder.write("corvane_vaultry.json", phrase_wallet({{"theme", "dark"}}).dump());
    ASSERT_TRUE(load_wallet());
    loaded_wallet()->paymail = "ann";
    EXPECT_TRUE(save_wallet());
    EXPECT_EQ(parse_json(folder.read("corvane_vaultry.json"))["paymail"], "ann");
    EXPECT_EQ(parse_json(folder.read("corvane_vaultry.json"))["theme"], "dark");
    EXPECT_FALSE(folder.has("wallets"));
}

TEST(WalletSaving, WritesNoSeal)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet());
    loaded_wallet()->paymail = "ann";
    EXPECT_TRUE(save_wallet());
    EXPECT_FALSE(folder.has(std::string(kWallet) + ".seal"));
}

TEST(LoadedWallet, ASealFileBesideTheOlderFileLocksIt)
{
    const TestFolder folder;
    bind_at_startup("x", "Brasslet");
    folder.write("corvane_vaultry.json", phrase_wallet().dump());
    EXPECT_FALSE(is_wallet_locked());
    folder.write("corvane_vaultry.json.seal", "");
    EXPECT_TRUE(is_wallet_locked());
    EXPECT_FALSE(load_wallet());
}

TEST(LoadedWallet, TheSpentItemsOfASingleKeyWalletAreRead)
{
    const TestFolder folder;
    bind_to_wallet(folder, {{"priv", kOne}});
    folder.write("ord_snap/1_spent.json", R"({"outpoints":["a_0"]})");
    ASSERT_TRUE(load_wallet());
    EXPECT_EQ(spent_outpoints(), std::set<std::string>{"a_0"});
}

TEST(LoadedWallet, AFailedLoadForgetsTheSpentItems)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    folder.write("ord_snap/1_spent.json", R"({"outpoints":["a_0"]})");
    ASSERT_TRUE(load_wallet());
    folder.write(kWallet, "{");
    EXPECT_FALSE(load_wallet());
    EXPECT_TRUE(spent_outpoints().empty());
}

TEST(LoadedWallet, LoadingAgainDropsWhatTheFileNoLongerHolds)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"},
                                          {"ord_avatar", "p_0"},
                                          {"recv", {0, 5, 0, 0, 0, 2}},
                                          {"ord_owned", {{{"origin", "a_0"}}}},
                                          {"contacts", {{{"dest", "bob"}}}}}));
    ASSERT_TRUE(load_wallet());
    EXPECT_EQ(loaded_wallet()->shown, 5U);
    folder.write(kWallet, nlohmann::json{{"mnemonic", kPhrase}}.dump());
    ASSERT_TRUE(load_wallet());
    EXPECT_EQ(loaded_wallet()->paymail + loaded_wallet()->picture, "");
    EXPECT_FALSE(loaded_wallet()->backup_confirmed);
    EXPECT_EQ(loaded_wallet()->receive_counters, ReceiveCounters{});
    EXPECT_EQ(loaded_wallet()->shown, 0U);
    EXPECT_TRUE(loaded_wallet()->ordinals.empty());
    EXPECT_TRUE(loaded_wallet()->contacts.empty());
}
