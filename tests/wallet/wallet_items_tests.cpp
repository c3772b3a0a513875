#include "wallet/wallet_items.h"

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
    EXPECT_EQ(counters_in("[4294967297,18446744073709551615,18446744073709551616,true,{},7]"),
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

namespace {

constexpr char kFullOrdinal[] =
    R"({"address":"a","amt":"5","created":false,"dec":"8","hidden":true,"icon":"i","name":"n","origin":"o",)"
    R"("token_id":"t","txid":"x","type":"image/png","vout":4294967296})";

}  // namespace

TEST(WalletItems, AnOrdinalIsReadWithAllItsMembers)
{
    const auto items = ordinals_from(parse_json(std::string("{\"ord_owned\":[") + kFullOrdinal + "]}"));
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].origin, "o");
    EXPECT_EQ(items[0].txid, "x");
    EXPECT_EQ(items[0].vout, 4294967296U);
    EXPECT_EQ(items[0].type, "image/png");
    EXPECT_EQ(items[0].address, "a");
    EXPECT_EQ(items[0].name, "n");
    EXPECT_EQ(items[0].icon, "i");
    EXPECT_EQ(items[0].amount, "5");
    EXPECT_EQ(items[0].decimals, "8");
    EXPECT_EQ(items[0].token_id, "t");
    EXPECT_TRUE(items[0].hidden);
}

TEST(WalletItems, MembersThatAreMissingOrOfAWrongTypeReadAsEmpty)
{
    const auto items = ordinals_from(parse_json(
        R"({"ord_owned":[{},{"origin":1,"txid":null,"vout":"3","type":[],"name":{},"hidden":"true"},{"vout":-1,"hidden":1}]})"));
    ASSERT_EQ(items.size(), 3U);
    for (const auto& item : items) {
        EXPECT_EQ(item.origin + item.txid + item.type + item.address + item.name + item.icon, "");
        EXPECT_EQ(item.amount + item.decimals + item.token_id, "");
        EXPECT_EQ(item.vout, 0U);
        EXPECT_FALSE(item.hidden);
    }
}

TEST(WalletItems, ElementsThatAreNoObjectsAreSkipped)
{
    const auto document = parse_json(R"({"ord_owned":[1,"x",null,[{}],{"origin":"o"}],
                                         "contacts":[true,"y",{"dest":"d","note":"n"},[],{"dest":5}]})");
    const auto items = ordinals_from(document);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].origin, "o");
    const auto contacts = contacts_from(document);
    ASSERT_EQ(contacts.size(), 2U);
    EXPECT_EQ(contacts[0].dest, "d");
    EXPECT_EQ(contacts[0].note, "n");
    EXPECT_EQ(contacts[1].dest, "");
}

TEST(WalletItems, AListThatIsNoArrayReadsAsEmpty)
{
    for (const char* list : {"null", "{\"a\":{}}", "\"x\"", "1"}) {
        const auto document = parse_json(std::string(R"({"ord_owned":)") + list + R"(,"contacts":)" + list + "}");
        EXPECT_TRUE(ordinals_from(document).empty()) << list;
        EXPECT_TRUE(contacts_from(document).empty()) << list;
    }
    EXPECT_TRUE(ordinals_from(parse_json("{}")).empty());
    EXPECT_TRUE(contacts_from(parse_json("{}")).empty());
}

TEST(WalletItems, AnOrdinalIsWrittenWithAllItsMembers)
{
    const std::string text = std::string("{\"ord_owned\":[") + kFullOrdinal + "]}";
    nlohmann::json document = nlohmann::json::object();
    set_ordinals(document, ordinals_from(parse_json(text)));
    EXPECT_EQ(compact_json(document), text);
}

TEST(WalletItems, AnOrdinalIsWrittenWithoutItsEmptyMembers)
{
    nlohmann::json document = nlohmann::json::object();
    set_ordinals(document, {OrdinalItem{}});
    EXPECT_EQ(compact_json(document), R"({"ord_owned":[{"created":false,"origin":"","txid":"","vout":0}]})");
}

TEST(WalletItems, AContactIsWritten)
{
    nlohmann::json document = nlohmann::json::object();
    set_contacts(document, {Contact{.dest = "d", .note = ""}});
    EXPECT_EQ(compact_json(document), R"({"contacts":[{"dest":"d","note":""}]})");
}

TEST(WalletItems, EmptyListsAreLeftOutForOrdinalsAndWrittenForContacts)
{
    for (const char* text : {"{}", R"({"contacts":[],"ord_owned":[]})"}) {
        auto document = parse_json(text);
        set_ordinals(document, {});
        set_contacts(document, {});
        EXPECT_EQ(compact_json(document), R"({"contacts":[]})") << text;
    }
}

TEST(WalletItems, ListsThatTheDocumentHasStayAsTheyStand)
{
    for (const char* list : {R"([{"created":true,"extra":1,"origin":"o"},5,"x"])", R"({"new":"form"})", "null"}) {
        const std::string text = std::string(R"({"contacts":)") + list + R"(,"ord_owned":)" + list + "}";
        auto document = parse_json(text);
        set_ordinals(document, ordinals_from(document));
        set_contacts(document, contacts_from(document));
        EXPECT_EQ(compact_json(document), text);
    }
}
