// The wallet's files while another process has them to itself.
#include "kit/child_process.h"
#include "kit/wallet_files.h"
#include "kit/windows/replaced_import.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/migration.h"
#include "wallet_bridge/wallet_list.h"

#include <gtest/gtest.h>

using SleepFunction = decltype(&Sleep);
// The linker's variable for what this program imports.
extern "C" SleepFunction __imp_Sleep;  // NOLINT(bugprone-reserved-identifier)

namespace {

void WINAPI skip_pause(DWORD) {}

}  // namespace

TEST(HeldWalletFiles, AnOldWalletThatIsLockedElsewhereStaysAndTheListGainsItsEntry)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    {
        ChildProcess other({folder.path(), "hold-alone", folder.data() + "/corvane_vaultry.json"});
        ASSERT_EQ(other.read_line(), "open");
        migrate_single_wallet();
    }
    ASSERT_EQ(list_wallets().size(), 1U);
    EXPECT_EQ(list_wallets()[0].name, "Wallet 1");
    EXPECT_FALSE(folder.has("wallets/" + list_wallets()[0].id + "/wallet.json"));
    EXPECT_EQ(folder.read("corvane_vaultry.json"), "the wallet");
}

TEST(HeldWalletFiles, AListThatIsLockedElsewhereIsNotTakenForAnEmptyOne)
{
    const TestFolder folder;
    const std::string list = R"({"wallets":[{"id":"1"}]})";
    folder.write("corvane_vaultry.json", "the wallet");
    folder.write("wallets.json", list);
    {
        ChildProcess other({folder.path(), "hold-alone", folder.data() + "/wallets.json"});
        ASSERT_EQ(other.read_line(), "open");
        migrate_single_wallet();
    }
    EXPECT_EQ(folder.read("wallets.json"), list);
    EXPECT_EQ(folder.read("corvane_vaultry.json"), "the wallet");
}

TEST(HeldWalletFiles, AWalletThatVaultryHasToItselfIsLeftAlone)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    held->wallet->paymail = "ann";
    const std::string text = folder.read("wallets/1/wallet.json");
    {
        ChildProcess other({folder.path(), "hold-alone", folder.data() + "/wallets/1/wallet.json"});
        ASSERT_EQ(other.read_line(), "open");
        const ReplacedImport<SleepFunction> noted(__imp_Sleep, skip_pause);
        EXPECT_FALSE(save_wallet(held));
    }
    EXPECT_EQ(folder.read("wallets/1/wallet.json"), text);
}
