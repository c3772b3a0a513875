#include "wallet/wallet_counters.h"

#include "text/exact_json.h"
#include "text/json.h"

#include <gtest/gtest.h>

namespace {

ReceiveCounters counters_in(const std::string& recv)
{
    return counters_from(parse_json("{\"recv\":" + recv + "}"));
}

std::uint32_t shown_in(const std::string& show, std::uint32_t most)
{
    return shown_from(parse_json("{\"show\":" + show + "}"), most);
}

std::string recv_after_setting(const std::string& document, const ReceiveCounters& counters)
{
    auto tree = parse_exact_json(document);
    set_counters(tree, counters);
    std::string list = pretty_exact_json(tree["recv"]);
    std::erase(list, '\n');
    std::erase(list, ' ');
    return list;
}

}  // namespace

TEST(WalletCounters, AreTheFirstSixIntegers)
{
    EXPECT_EQ(counters_in("[1,2,3,4,5,6]"), (ReceiveCounters{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(counters_in("[1,2,3,4,5,6,7]"), (ReceiveCounters{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(counters_in("[4294967295]"), (ReceiveCounters{4294967295}));
}

TEST(WalletCounters, ThatAreMissingReadAsZero)
{
    EXPECT_EQ(counters_in("[1,2,3]"), (ReceiveCounters{1, 2, 3, 0, 0, 0}));
    EXPECT_EQ(counters_in("[]"), ReceiveCounters{});
    EXPECT_EQ(counters_from(parse_json("{}")), ReceiveCounters{});
}

TEST(WalletCounters, ThatAreNoCountsAreSkipped)
{
    EXPECT_EQ(counters_in(R"(["9",2,null,-4,5.0,[6]])"), (ReceiveCounters{0, 2, 0, 0, 0, 0}));
    EXPECT_EQ(counters_in("[4294967296,18446744073709551615,18446744073709551616,true,{},7]"),
              (ReceiveCounters{0, 0, 0, 0, 0, 7}));
}

TEST(WalletCounters, OfSomethingThatIsNoArrayAreZero)
{
    for (const char* recv : {"null", "5", "\"12\"", R"({"0":1})"})
        EXPECT_EQ(counters_in(recv), ReceiveCounters{}) << recv;
}

TEST(WalletCounters, TheShownCountIsCapped)
{
    EXPECT_EQ(shown_in("50", 10), 10U);
    EXPECT_EQ(shown_in("10", 10), 10U);
    EXPECT_EQ(shown_in("9", 10), 9U);
    EXPECT_EQ(shown_in("0", 10), 0U);
    EXPECT_EQ(shown_in("18446744073709551615", 10), 10U);
    EXPECT_EQ(shown_in("1e300", 10), 10U);
    EXPECT_EQ(shown_in("4294967294", 4294967295), 4294967294U);
}

TEST(WalletCounters, TheFractionOfAShownCountIsDropped)
{
    EXPECT_EQ(shown_in("5.9", 10), 5U);
    EXPECT_EQ(shown_in("10.1", 10), 10U);
}

TEST(WalletCounters, AShownCountThatIsNoneReadsAsTheMost)
{
    for (const char* show : {"-1", "-0.5", "-1e300", "\"5\"", "null", "true", "[5]", "{}"})
        EXPECT_EQ(shown_in(show, 10), 10U) << show;
    EXPECT_EQ(shown_from(parse_json("{}"), 10), 10U);
}

TEST(WalletCounters, AreWrittenAsSix)
{
    EXPECT_EQ(recv_after_setting("{}", {1, 2, 3, 4, 5, 6}), "[1,2,3,4,5,6]");
    EXPECT_EQ(recv_after_setting(R"({"recv":[9,2]})", {1, 2, 3, 4, 5, 6}), "[1,2,3,4,5,6]");
    EXPECT_EQ(recv_after_setting(R"({"recv":"x"})", {1, 2}), "[1,2,0,0,0,0]");
}

TEST(WalletCounters, ElementsBeyondTheSixthStayAsTheyStand)
{
    EXPECT_EQ(recv_after_setting(R"({"recv":[1,2,3,4,5,6,7.50,"x"]})", {1, 2, 3, 4, 5, 7}), "[1,2,3,4,5,7,7.50,\"x\"]");
}

TEST(WalletCounters, WhatOnlyThisProgramCannotReadStaysAsItStands)
{
    const std::string text = R"({"recv":["x",2,4294967296,-4,5.0,null]})";
    EXPECT_EQ(recv_after_setting(text, counters_from(parse_json(text))), R"(["x",2,4294967296,-4,5.0,null])");
    EXPECT_EQ(recv_after_setting(text, {1, 2, 3, 4, 5, 6}), "[1,2,3,4,5,6]");
}
