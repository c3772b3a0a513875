#include "wallet_bridge/spent_snapshot.h"

#include "kit/test_folder.h"

#include <gtest/gtest.h>

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
