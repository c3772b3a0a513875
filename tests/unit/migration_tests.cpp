#include "wallet_bridge/migration.h"

#include "support/test_folder.h"
#include "text/clock.h"
#include "text/json.h"
#include "wallet_bridge/wallet_registry.h"

#include <gtest/gtest.h>

TEST(Migration, MakesTheOldWalletTheFirstOfTheRegistry)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    const auto before = milliseconds_since_epoch();
    migrate_single_wallet();
    const auto after = milliseconds_since_epoch();

    const auto wallets = list_wallets();
    ASSERT_EQ(wallets.size(), 1U);
    EXPECT_EQ(wallets[0].name, "Wallet 1");
    EXPECT_GE(std::stoll(wallets[0].id), before);
    EXPECT_LE(std::stoll(wallets[0].id), after);
    EXPECT_EQ(wallets[0].id.size(), 13U);
    EXPECT_EQ(folder.read("wallets/" + wallets[0].id + "/wallet.json"), "the wallet");
    EXPECT_FALSE(folder.has("corvane_vaultry.json"));
    EXPECT_EQ(parse_json(folder.read("wallets.json"))["active"], wallets[0].id);
}

TEST(Migration, WithoutAPlaceForTheWalletItStaysAndTheRegistryGainsItsEntry)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    folder.write("wallets", "in the way");
    migrate_single_wallet();
    ASSERT_EQ(list_wallets().size(), 1U);
    EXPECT_EQ(list_wallets()[0].name, "Wallet 1");
    EXPECT_EQ(parse_json(folder.read("wallets.json"))["active"], list_wallets()[0].id);
    EXPECT_EQ(folder.read("corvane_vaultry.json"), "the wallet");
    EXPECT_EQ(folder.read("wallets"), "in the way");
}

TEST(Migration, KeepsWhatElseStandsInTheRegistryButForTheActiveWallet)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    folder.write("wallets.json", R"({"active":"gone","theme":"dark","wallets":[]})");
    migrate_single_wallet();
    EXPECT_EQ(parse_json(folder.read("wallets.json"))["theme"], "dark");
    ASSERT_EQ(list_wallets().size(), 1U);
    EXPECT_EQ(parse_json(folder.read("wallets.json"))["active"], list_wallets()[0].id);
}

TEST(Migration, LeavesTheOldWalletAloneWhenTheRegistryHoldsAnything)
{
    const TestFolder folder;
    for (const char* text : {R"({"wallets":[{"id":"1"}]})", R"({"wallets":["x"]})"}) {
        folder.write("corvane_vaultry.json", "the wallet");
        folder.write("wallets.json", text);
        migrate_single_wallet();
        EXPECT_EQ(folder.read("corvane_vaultry.json"), "the wallet");
        EXPECT_EQ(folder.read("wallets.json"), text);
    }
}

TEST(Migration, WithoutAnOldWalletNothingIsWritten)
{
    const TestFolder folder;
    migrate_single_wallet();
    EXPECT_FALSE(folder.has("wallets.json"));
    EXPECT_FALSE(folder.has("wallets"));
}
