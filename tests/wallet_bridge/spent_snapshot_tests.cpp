#include "wallet_bridge/spent_snapshot.h"

#include "kit/wallet_files.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/loaded_wallet.h"

#include <gtest/gtest.h>

namespace {

const char* const kWallet = "wallets/1/wallet.json";
const char* const kSnapshot = "ord_snap/1_spent.json";
const std::string kOne = "0000000000000000000000000000000000000000000000000000000000000001";

using Outpoints = std::set<std::string>;

}  // namespace

TEST(SpentSnapshot, IsThatOfTheLoadedWalletAtTheMomentOfTheQuestion)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    folder.write(kSnapshot, R"({"outpoints":["a_0"]})");
    EXPECT_EQ(spent_outpoints(held), Outpoints{});
    ASSERT_TRUE(load_wallet(held));
    EXPECT_EQ(spent_outpoints(held), Outpoints{"a_0"});
    folder.write(kSnapshot, R"({"outpoints":["b_0"]})");
    EXPECT_EQ(spent_outpoints(held), Outpoints{"b_0"});
    forget_wallet(held);
    EXPECT_EQ(spent_outpoints(held), Outpoints{});
}

TEST(SpentSnapshot, WithoutABoundWalletItIsFoundByTheIdentity)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_at_startup("x", "Brasslet");
    folder.write("corvane_vaultry.json", phrase_wallet().dump());
    ASSERT_TRUE(load_wallet(held));
    folder.write("ord_snap/" + held->wallet->keys.identity_key + "_spent.json", R"({"outpoints":["b_0"]})");
    EXPECT_EQ(spent_outpoints(held), Outpoints{"b_0"});
}

TEST(SpentSnapshot, ASingleKeyWalletHasOneToo)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, {{"priv", kOne}});
    folder.write(kSnapshot, R"({"outpoints":["a_0"]})");
    ASSERT_TRUE(load_wallet(held));
    EXPECT_EQ(spent_outpoints(held), Outpoints{"a_0"});
}

TEST(SpentSnapshot, AfterAFailedLoadThereIsNone)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    folder.write(kSnapshot, R"({"outpoints":["a_0"]})");
    ASSERT_TRUE(load_wallet(held));
    folder.write(kWallet, "{");
    EXPECT_FALSE(load_wallet(held));
    EXPECT_EQ(spent_outpoints(held), Outpoints{});
}

TEST(SpentSnapshot, TheKeyIsTheFirstOfWalletIdentityAndAddress)
{
    EXPECT_EQ(spent_snapshot_key("17", "02ab", "1Addr"), "17");
    EXPECT_EQ(spent_snapshot_key("", "02ab", "1Addr"), "02ab");
    EXPECT_EQ(spent_snapshot_key("", "", "1Addr"), "1Addr");
    EXPECT_EQ(spent_snapshot_key("", "", ""), "wallet");
}

TEST(SpentSnapshot, TheKeyKeepsCaseAndItsBeginning)
{
    EXPECT_EQ(spent_snapshot_key("Ab/1 \xC3\xAB", "", ""), "Ab_1___");
    EXPECT_EQ(spent_snapshot_key(std::string(80, 'a') + "b", "", ""), std::string(80, 'a'));
}

TEST(SpentSnapshot, TextsOfTheListAreRead)
{
    const TestFolder folder;
    folder.write("ord_snap/17_spent.json", R"({"outpoints":["a_0",7,null,"b_1","a_0"]})");
    EXPECT_EQ(read_spent_snapshot("17"), (std::set<std::string>{"a_0", "b_1"}));
}

TEST(SpentSnapshot, WhatIsNoListReadsAsNone)
{
    const TestFolder folder;
    EXPECT_TRUE(read_spent_snapshot("17").empty());
    for (const char* text : {"", "{", "[\"a\"]", "{}", R"({"outpoints":{"a":"b"}})", R"({"outpoints":"a"})"}) {
        folder.write("ord_snap/17_spent.json", text);
        EXPECT_TRUE(read_spent_snapshot("17").empty()) << text;
    }
}
