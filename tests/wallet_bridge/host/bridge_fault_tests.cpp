// What the wallet bridge does when the disk refuses.
#include "build_values.h"
#include "kit/stand_in/native_path.h"
#include "kit/stand_in/stand_in.h"
#include "kit/wallet_files.h"
#include "text/json.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/house_labels.h"
#include "wallet_bridge/migration.h"
#include "wallet_bridge/wallet_identity.h"
#include "wallet_bridge/wallet_list.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(BridgeFaults, AFailedReplaceLeavesTheOldFileAndNoTemporaryFile)
{
    const TestFolder folder;
    folder.write("wallets.json", "old");
    stand_in().files.replaces_fail = true;
    EXPECT_FALSE(write_registry(RegistryLock{}, {{"wallets", nlohmann::json::array()}}));
    EXPECT_EQ(folder.read("wallets.json"), "old");
    EXPECT_FALSE(folder.has("wallets.json.tmp"));
}

TEST(BridgeFaults, AFullDiskLeavesTheOldFileAndTheTemporaryFileWhereItIs)
{
    const TestFolder folder;
    folder.write("wallets.json", "old");
    stand_in().files.largest_file = 5;
    EXPECT_FALSE(write_registry(RegistryLock{}, {{"wallets", nlohmann::json::array()}}));
    EXPECT_EQ(folder.read("wallets.json"), "old");
    EXPECT_TRUE(folder.has("wallets.json.tmp"));
}

TEST(BridgeFaults, AnUnchangedFileIsNotWrittenAgain)
{
    const TestFolder folder;
    ASSERT_TRUE(write_registry(RegistryLock{}, {{"wallets", nlohmann::json::array()}}));
    stand_in().files.written.clear();
    EXPECT_TRUE(write_registry(RegistryLock{}, {{"wallets", nlohmann::json::array()}}));
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

TEST(BridgeFaults, AnOldWalletThatCannotBeMovedStaysAndTheListGainsItsEntry)
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

TEST(BridgeFaults, AListThatCannotBeReadNowIsNotTakenForAnEmptyOne)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    folder.write("wallets.json", R"({"wallets":[{"id":"1"}]})");
    stand_in().files.reads_fail = true;
    EXPECT_EQ(look_into_wallet_list(RegistryLock{}).status, WalletListStatus::unreadable);
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

TEST(BridgeFaults, ABindRecordThatCannotBeDeletedIsNotBelievedAnyMore)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1"}]})");
    bind_at_startup(".", "Brasslet");
    ASSERT_EQ(bound_wallet_id(), "1");
    stand_in().files.refuses = [](const std::string&) { return true; };
    unbind_wallet();
    EXPECT_TRUE(folder.has("binds/_.json"));
    EXPECT_EQ(bound_wallet_id(), "");
    EXPECT_FALSE(wallet_binding().is_recorded);
    stand_in().files.refuses = nullptr;
    unbind_wallet();
    EXPECT_FALSE(folder.has("binds/_.json"));
    EXPECT_TRUE(wallet_binding().is_recorded);
}

TEST(BridgeFaults, ABindRecordThatCannotBeWrittenIsNotBelievedAnyMore)
{
    const TestFolder folder;
    bind_at_startup(".", "Brasslet");
    bind_wallet("1");
    stand_in().files.refuses = [](const std::string&) { return true; };
    bind_wallet("2");
    EXPECT_EQ(parse_json(folder.read("binds/_.json"))["wallet_id"], "1");
    EXPECT_EQ(bound_wallet_id(), "2");
    EXPECT_FALSE(wallet_binding().is_recorded);
    stand_in().files.refuses = nullptr;
    bind_wallet("2");
    EXPECT_EQ(parse_json(folder.read("binds/_.json"))["wallet_id"], "2");
    EXPECT_TRUE(wallet_binding().is_recorded);
}

TEST(BridgeFaults, ABindRecordThatSaysTheSameNeedNotBeWritten)
{
    const TestFolder folder;
    bind_at_startup(".", "Brasslet");
    bind_wallet("1");
    stand_in().files.refuses = [](const std::string&) { return true; };
    bind_at_startup(".", "Brasslet");
    EXPECT_EQ(bound_wallet_id(), "1");
    EXPECT_TRUE(wallet_binding().is_recorded);
}

TEST(BridgeFaults, WithoutABindRecordThereIsNothingToDelete)
{
    const TestFolder folder;
    bind_at_startup(".", "Brasslet");
    unbind_wallet();
    EXPECT_TRUE(wallet_binding().is_recorded);
}

TEST(BridgeFaults, AnOlderHouseLabelsFileThatCannotBeReadNowIsNotTakenForAMissingOne)
{
    const TestFolder folder;
    const std::string here = std::filesystem::current_path().string();
    std::filesystem::create_directories(native_path(folder.data() + "/userinfo/corvane_paymail.json"));
    std::filesystem::current_path(native_path(folder.data()));
    EXPECT_EQ(register_house_label("ann", "02ab", {}), "could not read paymail registry");
    std::filesystem::current_path(here);
    EXPECT_FALSE(folder.has("corvane_paymail.json"));
}

TEST(BridgeFaults, AHouseLabelsFileThatCannotBeWrittenTakesNoPaymailAway)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    stand_in().files.writes_fail = true;
    EXPECT_EQ(wallet_paymail(), std::string("ann@") + kHouseDomain);
}

TEST(BridgeFaults, AHouseLabelsFileIsWrittenInItsPlace)
{
    const TestFolder folder;
    EXPECT_EQ(register_house_label("ann", "02ab", {}), "");
    EXPECT_EQ(stand_in().files.written, std::vector<std::string>{folder.data() + "/corvane_paymail.json"});
}

TEST(BridgeFaults, AHouseLabelsFileThatCannotBeReadNowIsNotTakenForAnEmptyOne)
{
    const TestFolder folder;
    const std::string text = R"({"names":{"bob":{"pubkey":"03cd"}}})";
    folder.write("corvane_paymail.json", text);
    stand_in().files.reads_fail = true;
    EXPECT_EQ(register_house_label("ann", "02ab", {}), "could not read paymail registry");
    EXPECT_EQ(set_house_avatar("02ab", "p_0"), "could not write paymail registry");
    stand_in().files.reads_fail = false;
    EXPECT_EQ(folder.read("corvane_paymail.json"), text);
}
