// When a loaded wallet is not written back, and what a load drops.
#include "kit/child_process.h"
#include "kit/wallet_files.h"
#include "platform/files.h"
#include "text/json.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/loaded_wallet.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <thread>

namespace {

// A start takes long under Wine.
#ifdef _WIN32
constexpr int kKills = 60;
#else
constexpr int kKills = 500;
#endif

const char* const kWallet = "wallets/1/wallet.json";

}  // namespace

TEST(WalletSaving, FailsWhenTheFileCannotBeWritten)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    const std::string wallets = folder.path() + "/Corvane/wallets";
    ASSERT_GT(std::filesystem::remove_all(std::filesystem::path(std::u8string(wallets.begin(), wallets.end()))), 0U);
    folder.write("wallets", "in the way");
    EXPECT_FALSE(save_wallet(held));
    EXPECT_EQ(folder.read("wallets"), "in the way");
}

TEST(WalletSaving, LeavesAFileAloneThatAnotherProgramHasJustEmptied)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    folder.write(kWallet, "");
    EXPECT_FALSE(save_wallet(held));
    EXPECT_TRUE(folder.has(kWallet));
    EXPECT_EQ(folder.read(kWallet), "");
}

TEST(WalletSaving, LeavesALockRecordAloneThatHasTakenTheWalletsPlace)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    held->wallet->paymail = "ann";
    folder.write(kWallet, R"({"lock":"QX-LOCK1"})");
    EXPECT_FALSE(save_wallet(held));
    EXPECT_EQ(folder.read(kWallet), R"({"lock":"QX-LOCK1"})");
}

TEST(WalletSaving, WritesNothingBesideASeal)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    held->wallet->paymail = "ann";
    const std::string text = folder.read(kWallet);
    folder.write(std::string(kWallet) + ".seal", "");
    EXPECT_FALSE(save_wallet(held));
    EXPECT_EQ(folder.read(kWallet), text);
}

TEST(WalletSaving, MakesNoFileThatIsGone)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    held->wallet->paymail = "ann";
    ASSERT_TRUE(remove_file(folder.data() + "/" + kWallet));
    EXPECT_FALSE(save_wallet(held));
    EXPECT_FALSE(folder.has(kWallet));
}

TEST(WalletSaving, WritesWhereTheWalletWasReadWhateverIsBoundSince)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    const std::string text = folder.read(kWallet);
    folder.write("wallets/2/wallet.json", text);
    ASSERT_TRUE(load_wallet(held));
    held->wallet->paymail = "ann";
    bind_wallet("2");
    EXPECT_TRUE(save_wallet(held));
    EXPECT_EQ(parse_json(folder.read(kWallet))["paymail"], "ann");
    EXPECT_EQ(folder.read("wallets/2/wallet.json"), text);
}

TEST(WalletSaving, OfANewerFormatWritesNothing)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet({{"version", 3}}));
    const std::string text = folder.read(kWallet);
    ASSERT_TRUE(load_wallet(held));
    held->wallet->paymail = "ann";
    EXPECT_FALSE(save_wallet(held));
    EXPECT_EQ(folder.read(kWallet), text);
}

// The text stays below one page of memory, as in the test of rewriting in place.
TEST(WalletSaving, KilledAtAnyMomentLeavesAWholeWallet)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    std::mt19937 random(1);
    std::set<std::string> seen;
    for (int kill = 0; kill < kKills; ++kill) {
        ChildProcess writer({folder.path(), "save-wallet"});
        ASSERT_EQ(writer.read_line(), "saving");
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 3000));
        writer.kill();
        const auto document = parse_json(folder.read(kWallet));
        ASSERT_EQ(text_member(document, "mnemonic"), kPhrase) << "kill " << kill;
        seen.insert(text_member(document, "paymail"));
    }
    EXPECT_EQ(seen, (std::set<std::string>{"ann", "a-much-longer-label"}));
}

TEST(WalletSaving, OfTheOlderFileRewritesIt)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_at_startup("x", "Brasslet");
    folder.write("corvane_vaultry.json", phrase_wallet({{"theme", "dark"}}).dump());
    ASSERT_TRUE(load_wallet(held));
    held->wallet->paymail = "ann";
    EXPECT_TRUE(save_wallet(held));
    EXPECT_EQ(parse_json(folder.read("corvane_vaultry.json"))["paymail"], "ann");
    EXPECT_EQ(parse_json(folder.read("corvane_vaultry.json"))["theme"], "dark");
    EXPECT_FALSE(folder.has("wallets"));
}

TEST(WalletSaving, WritesNoSeal)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    held->wallet->paymail = "ann";
    EXPECT_TRUE(save_wallet(held));
    EXPECT_FALSE(folder.has(std::string(kWallet) + ".seal"));
}

TEST(LoadedWallet, ASealFileBesideTheOlderFileLocksIt)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_at_startup("x", "Brasslet");
    folder.write("corvane_vaultry.json", phrase_wallet().dump());
    EXPECT_FALSE(is_wallet_locked());
    folder.write("corvane_vaultry.json.seal", "");
    EXPECT_TRUE(is_wallet_locked());
    EXPECT_FALSE(load_wallet(held));
}

TEST(LoadedWallet, LoadingAgainDropsWhatTheFileNoLongerHolds)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"},
                                          {"ord_avatar", "p_0"},
                                          {"recv", {0, 5, 0, 0, 0, 2}},
                                          {"ord_owned", {{{"origin", "a_0"}}}},
                                          {"contacts", {{{"dest", "bob"}}}}}));
    ASSERT_TRUE(load_wallet(held));
    EXPECT_EQ(held->wallet->shown, 5U);
    folder.write(kWallet, nlohmann::json{{"mnemonic", kPhrase}}.dump());
    ASSERT_TRUE(load_wallet(held));
    EXPECT_EQ(held->wallet->paymail + held->wallet->picture, "");
    EXPECT_FALSE(held->wallet->backup_confirmed);
    EXPECT_EQ(held->wallet->receive_counters, ReceiveCounters{});
    EXPECT_EQ(held->wallet->shown, 0U);
    EXPECT_TRUE(held->wallet->ordinals.empty());
    EXPECT_TRUE(held->wallet->contacts.empty());
}
