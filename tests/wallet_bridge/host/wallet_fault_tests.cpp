// What becomes of a loaded wallet when its file cannot be read or written for the moment.
#include "kit/stand_in/stand_in.h"
#include "kit/wallet_files.h"
#include "text/json.h"
#include "wallet_bridge/loaded_wallet.h"

#include <gtest/gtest.h>

namespace {

const char* const kWallet = "wallets/1/wallet.json";

}  // namespace

TEST(WalletFaults, AFileThatCannotBeReadNowIsNotWrittenOver)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    const std::string newer = phrase_wallet({{"recv", {0, 5, 0, 0, 0, 0}}}).dump();
    folder.write(kWallet, newer);
    stand_in().files.reads_fail = true;
    EXPECT_FALSE(save_wallet(held));
    stand_in().files.reads_fail = false;
    EXPECT_EQ(folder.read(kWallet), newer);
}

TEST(WalletFaults, AfterAFailedSaveTheNextOneSucceeds)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    held->wallet->paymail = "ann";
    stand_in().files.writes_fail = true;
    EXPECT_FALSE(save_wallet(held));
    stand_in().files.writes_fail = false;
    EXPECT_TRUE(save_wallet(held));
    EXPECT_EQ(parse_json(folder.read(kWallet))["paymail"], "ann");
}

TEST(WalletFaults, AFullDiskLeavesTheOldWallet)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    const std::string text = folder.read(kWallet);
    held->wallet->paymail = std::string(500, 'a');
    stand_in().files.largest_file = text.size();
    EXPECT_FALSE(save_wallet(held));
    EXPECT_EQ(folder.read(kWallet), text);
}

TEST(WalletFaults, TheWalletIsWrittenInItsPlaceAndOnlyWhenItChanged)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    EXPECT_TRUE(save_wallet(held));
    stand_in().files.written.clear();
    EXPECT_TRUE(save_wallet(held));
    EXPECT_TRUE(stand_in().files.written.empty());
    held->wallet->paymail = "ann";
    EXPECT_TRUE(save_wallet(held));
    EXPECT_EQ(stand_in().files.written, std::vector<std::string>{folder.data() + "/" + kWallet});
}

// Whatever the other program does, at whatever moment between the load and the end of the save, what it has left stays.
TEST(WalletFaults, AnotherProgramThatComesBetweenAnyTwoStepsIsNotUndone)
{
    const std::string newer = phrase_wallet({{"recv", {0, 5, 0, 0, 0, 0}}}).dump();
    int moments = 0;
    for (bool came_between = true; came_between; ++moments) {
        const TestFolder folder;
        HeldWallet held = hold_wallet();
        bind_to_wallet(folder, phrase_wallet());
        ASSERT_TRUE(load_wallet(held));
        held->wallet->paymail = "ann";
        int uses = 0;
        stand_in().files.on_use = [&](const std::string&) {
            if (uses++ == moments) folder.write(kWallet, newer);
        };
        const bool is_saved = save_wallet(held);
        stand_in().files.on_use = nullptr;
        came_between = uses > moments;
        EXPECT_EQ(is_saved, !came_between);
        if (came_between) {
            EXPECT_EQ(folder.read(kWallet), newer);
        }
    }
    EXPECT_GT(moments, 1);
}
