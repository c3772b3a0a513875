// What the wallet bridge does when the disk refuses.
#include "platform_host/native_path.h"
#include "platform_host/stand_in.h"
#include "support/test_folder.h"
#include "text/json.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/house_registry.h"
#include "wallet_bridge/migration.h"
#include "wallet_bridge/wallet_registry.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(BridgeFaults, AFailedReplaceLeavesTheOldRegistryAndNoTemporaryFile)
{
    const TestFolder folder;
    folder.write("wallets.json", "old");
    stand_in().files.replaces_fail = true;
    EXPECT_FALSE(write_registry({{"wallets", nlohmann::json::array()}}));
    EXPECT_EQ(folder.read("wallets.json"), "old");
    EXPECT_FALSE(folder.has("wallets.json.tmp"));
}

TEST(BridgeFaults, AFullDiskLeavesTheOldRegistryAndTheTemporaryFileWhereItIs)
{
    const TestFolder folder;
    folder.write("wallets.json", "old");
    stand_in().files.largest_file = 5;
    EXPECT_FALSE(write_registry({{"wallets", nlohmann::json::array()}}));
    EXPECT_EQ(folder.read("wallets.json"), "old");
    EXPECT_TRUE(folder.has("wallets.json.tmp"));
}

TEST(BridgeFaults, AnUnchangedRegistryIsNotWrittenAgain)
{
    const TestFolder folder;
    ASSERT_TRUE(write_registry({{"wallets", nlohmann::json::array()}}));
    stand_in().files.written.clear();
    EXPECT_TRUE(write_registry({{"wallets", nlohmann::json::array()}}));
    EXPECT_TRUE(stand_in().files.written.empty());
}

TEST(BridgeFaults, AnOldWalletThatCannotBeRenamedIsCopiedAndThenDeleted)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    stand_in().files.renames_fail = true;
    migrate_single_wallet();
    ASSERT_EQ(list_wallets().size(), 1U);
    EXPECT_EQ(folder.read("wallets/" + list_wallets()[0].id + "/wallet.json"), "the wallet");
    EXPECT_FALSE(folder.has("corvane_vaultry.json"));
}

TEST(BridgeFaults, AnOldWalletThatCannotBeMovedStaysAndTheRegistryGainsItsEntry)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    stand_in().files.renames_fail = true;
    stand_in().files.copies_fail = true;
    migrate_single_wallet();
    ASSERT_EQ(list_wallets().size(), 1U);
    EXPECT_EQ(list_wallets()[0].name, "Wallet 1");
    EXPECT_FALSE(folder.has("wallets/" + list_wallets()[0].id + "/wallet.json"));
    EXPECT_EQ(folder.read("corvane_vaultry.json"), "the wallet");
}

TEST(BridgeFaults, ARegistryThatCannotBeReadNowIsNotTakenForAnEmptyOne)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    folder.write("wallets.json", R"({"wallets":[{"id":"1"}]})");
    stand_in().files.reads_fail = true;
    EXPECT_FALSE(is_registry_within_reach());
    migrate_single_wallet();
    stand_in().files.reads_fail = false;
    EXPECT_EQ(folder.read("wallets.json"), R"({"wallets":[{"id":"1"}]})");
    EXPECT_EQ(folder.read("corvane_vaultry.json"), "the wallet");
}

TEST(BridgeFaults, AnOldWalletWhoseStatusCannotBeAskedIsNotMigrated)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[]})");
    const std::string path = native_path(folder.data() + "/corvane_vaultry.json");
    std::filesystem::create_symlink(path, path);  // endless, so that asking about it fails
    migrate_single_wallet();
    EXPECT_EQ(folder.read("wallets.json"), R"({"wallets":[]})");
    EXPECT_FALSE(folder.has("wallets"));
}

TEST(BridgeFaults, TheBindRecordIsWrittenInItsPlace)
{
    const TestFolder folder;
    bind_at_startup(".", "Brasslet");
    stand_in().files.written.clear();
    bind_wallet("1");
    EXPECT_EQ(stand_in().files.written, std::vector<std::string>{folder.data() + "/binds/_.json"});
}

TEST(BridgeFaults, AHouseRegistryIsWrittenInItsPlace)
{
    const TestFolder folder;
    EXPECT_EQ(register_house_label("ann", "02ab", ""), "");
    EXPECT_EQ(stand_in().files.written, std::vector<std::string>{folder.data() + "/corvane_paymail.json"});
}

TEST(BridgeFaults, AHouseRegistryThatCannotBeReadNowIsNotTakenForAnEmptyOne)
{
    const TestFolder folder;
    const std::string text = R"({"names":{"bob":{"pubkey":"03cd"}}})";
    folder.write("corvane_paymail.json", text);
    stand_in().files.reads_fail = true;
    EXPECT_EQ(register_house_label("ann", "02ab", ""), "could not write paymail registry");
    EXPECT_EQ(set_house_avatar("02ab", "p_0"), "could not write paymail registry");
    stand_in().files.reads_fail = false;
    EXPECT_EQ(folder.read("corvane_paymail.json"), text);
}
