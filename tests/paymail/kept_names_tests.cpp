#include "paymail/kept_names.h"

#include "kit/bound_wallet.h"
#include "platform/files.h"
#include "text/json.h"

#include "build_values.h"

#include <gtest/gtest.h>

namespace {

using nlohmann::json;

constexpr char kFile[] = "payname/payname.json";

json row(const std::string& paymail, const std::string& pubkey = "key", const std::string& address = "address")
{
    return {{"paymail", paymail}, {"pubkey", pubkey}, {"address", address}};
}

std::string names_form(const json& rows)
{
    return json{{"names", rows}}.dump(2);
}

}  // namespace

TEST(KeptNames, IsEmptyWithoutAReadableFile)
{
    const TestFolder folder;
    EXPECT_EQ(load_paynames(), json::array());
    for (const std::string& text :
         {std::string(), std::string("no json"), std::string("{}"), std::string("7"), std::string(R"({"names":7})"),
          std::string(10'000, '['), std::string("{\"names\":[\"\xff\"]}")}) {
        folder.write(kFile, text);
        EXPECT_EQ(load_paynames(), json::array()) << text.substr(0, 40);
    }
}

TEST(KeptNames, ReadsTheNamesOrAnArrayOrOneOlderRow)
{
    const TestFolder folder;
    const json rows = json::array({row("a@x.org"), row("b@x.org")});
    folder.write(kFile, json{{"names", rows}, {"paymail", "c@x.org"}}.dump());
    EXPECT_EQ(load_paynames(), rows);
    folder.write(kFile, rows.dump());
    EXPECT_EQ(load_paynames(), rows);
    json older = row("a@x.org");
    folder.write(kFile, older.dump());
    EXPECT_EQ(load_paynames(), json::array({older}));
    older["names"] = 7;
    folder.write(kFile, older.dump());
    EXPECT_EQ(load_paynames(), json::array({older}));
}

TEST(KeptNames, ReadsNoRowsOfTheOlderFormsThatItCouldNotReadAgainAfterwards)
{
    const TestFolder folder;
    const auto nested = [](int levels) {
        return std::string(static_cast<std::size_t>(levels), '[') + std::string(static_cast<std::size_t>(levels), ']');
    };
    // Written back, an array has one level more around it, a single row two.
    for (const std::string& text : {nested(kDeepestJson - 1), "{\"paymail\":" + nested(kDeepestJson - 3) + "}"}) {
        folder.write(kFile, text);
        const json rows = load_paynames();
        EXPECT_EQ(rows.size(), 1U);
        EXPECT_TRUE(save_paynames(rows));
        EXPECT_EQ(load_paynames(), rows);
    }
    for (const std::string& text : {nested(kDeepestJson), "{\"paymail\":" + nested(kDeepestJson - 2) + "}"}) {
        folder.write(kFile, text);
        EXPECT_EQ(load_paynames(), json::array());
    }
}

TEST(KeptNames, IsWrittenInTheNamesForm)
{
    const TestFolder folder;
    EXPECT_TRUE(save_paynames(json::array({row("a@x.org")})));
    EXPECT_EQ(folder.read(kFile),
              "{\n  \"names\": [\n    {\n      \"address\": \"address\",\n      \"paymail\": \"a@x.org\",\n"
              "      \"pubkey\": \"key\"\n    }\n  ]\n}");
}

TEST(KeptNames, CannotBeWrittenWhereItsFolderCannotBe)
{
    const TestFolder folder;
    folder.write("payname", "a file");
    EXPECT_FALSE(save_paynames(json::array()));
    EXPECT_FALSE(keep_payname({"a@x.org", "key", "address"}));
    EXPECT_EQ(folder.read("payname"), "a file");
}

TEST(KeptNames, AnOlderRowIsRewrittenInTheNamesForm)
{
    const TestFolder folder;
    folder.write(kFile, row("a@x.org").dump());
    EXPECT_TRUE(keep_payname({"b@x.org", "k", "a"}));
    EXPECT_EQ(folder.read(kFile), names_form(json::array({row("a@x.org"), row("b@x.org", "k", "a")})));
}

TEST(KeptNames, KeepingANameTwiceUpdatesItsRowInPlace)
{
    const TestFolder folder;
    json noted = row("A@X.org", "old", "old");
    noted["note"] = "mine";
    folder.write(kFile, names_form(json::array({7, noted, row("b@x.org")})));
    EXPECT_TRUE(keep_payname({"a@x.org", "k", "a"}));
    json updated = row("a@x.org", "k", "a");
    updated["note"] = "mine";
    EXPECT_EQ(load_paynames(), json::array({7, updated, row("b@x.org")}));
}

TEST(KeptNames, RemovingANameKeepsEveryOther)
{
    const TestFolder folder;
    folder.write(kFile, names_form(json::array({row("a@x.org"), 7, row("A@X.ORG"), row("b@x.org"), json::object()})));
    remove_payname("a@X.org");
    EXPECT_EQ(folder.read(kFile), names_form(json::array({7, row("b@x.org"), json::object()})));
}

TEST(KeptNames, RemovingTheLastNameDeletesTheFile)
{
    const TestFolder folder;
    folder.write(kFile, names_form(json::array({row("a@x.org")})));
    remove_payname("a@x.org");
    EXPECT_FALSE(folder.has(kFile));
    remove_payname("a@x.org");
    EXPECT_FALSE(folder.has(kFile));
}

TEST(KeptNames, ShowsNothingWithoutAWallet)
{
    const TestFolder folder;
    folder.write(kFile, names_form(json::array({row("a@x.org", "", "")})));
    EXPECT_EQ(names_of_this_wallet(), "");
}

TEST(KeptNames, ShowsTheNamesOfThisWallet)
{
    const BoundWallet wallet;
    const auto mine = [&wallet](const std::string& paymail) { return row(paymail, wallet.key, wallet.address); };
    wallet.folder.write(kFile, names_form(json::array({mine("a@x.org"), 7, row("other@x.org", "other", wallet.address),
                                                       row("moved@x.org", wallet.key, "other"), mine("no paymail"),
                                                       mine("a b@x.org"), mine("a@localhost"), mine("a@b@x.org"),
                                                       mine(std::string("house@") + kHouseDomain),
                                                       mine("house@CORVANE.example"), mine("b@y.org")})));
    EXPECT_EQ(names_of_this_wallet(), "a@x.org, b@y.org");
}

TEST(KeptNames, NothingIsTheNameOfATextThatIsNoKeyOrNoAddress)
{
    const TestFolder folder;
    const std::string key(66, 'a');
    const std::string address(26, '1');
    folder.write(kFile, names_form(json::array({row("a@x.org", key, address), row("b@x.org", "short", address),
                                                row("c@x.org", key, "short")})));
    EXPECT_EQ(names_of_wallet({key, address}), std::vector<std::string>{"a@x.org"});
    EXPECT_TRUE(names_of_wallet({"short", address}).empty());
    EXPECT_TRUE(names_of_wallet({key, "short"}).empty());
}

TEST(KeptNames, DigitsOfOtherMembersStayAsTheyStand)
{
    const TestFolder folder;
    folder.write(kFile, R"([{"paymail":"a@x.org","since":123456789012345678901234567890,"share":0.10},)"
                        R"({"paymail":"b@x.org","power":1E+2,"minus":-0}])");
    ASSERT_TRUE(keep_payname({"b@x.org", "key", "address"}));
    constexpr char kFirst[] = R"(    {
      "paymail": "a@x.org",
      "share": 0.10,
      "since": 123456789012345678901234567890
    })";
    EXPECT_EQ(folder.read(kFile), std::string("{\n  \"names\": [\n") + kFirst + R"(,
    {
      "address": "address",
      "minus": -0,
      "paymail": "b@x.org",
      "power": 1E+2,
      "pubkey": "key"
    }
  ]
})");
    remove_payname("b@x.org");
    EXPECT_EQ(folder.read(kFile), std::string("{\n  \"names\": [\n") + kFirst + "\n  ]\n}");
}
