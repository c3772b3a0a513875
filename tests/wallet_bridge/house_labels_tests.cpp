#include "wallet_bridge/house_labels.h"

#include "build_values.h"
#include "kit/test_folder.h"
#include "text/json.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

const char* const kFile = "corvane_paymail.json";
const std::string kNeedName = "need a paymail name (letters, numbers, _ - .)";
const std::string kDomain = kHouseDomain;

nlohmann::json document(const TestFolder& folder)
{
    return parse_json(folder.read(kFile));
}

nlohmann::json labels(int count, const char* key)
{
    nlohmann::json names = nlohmann::json::object();
    for (int i = 0; i < count; ++i)
        names["label" + std::to_string(i)] = {{"pubkey", key}};
    return names;
}

}  // namespace

TEST(HouseLabel, IsWhatTheTypedNameStandsFor)
{
    EXPECT_EQ(house_label("@Alice.Smith@some.domain"), "alice.smith");
    EXPECT_EQ(house_label(" $@ bob_1-x. \r\n"), "bob_1-x.");
    EXPECT_EQ(house_label("Zo\xC3\xAB \xE7\x94\xA8M!"), "zom");
    EXPECT_EQ(house_label("a b/c"), "abc");
    EXPECT_EQ(house_label("@$ "), "");
    EXPECT_EQ(house_label(""), "");
    EXPECT_EQ(house_label("\xE7\x94\xA8"), "");
}

TEST(HouseLabel, ABareLabelKeepsItsLetters)
{
    EXPECT_EQ(bare_label("@Ann!@corvane.example "), "Ann!");
    EXPECT_EQ(bare_label("Ann \n"), "Ann");
    EXPECT_EQ(bare_label("\tAnn"), "\tAnn");
    EXPECT_EQ(bare_label("@@"), "");
}

TEST(HouseLabels, ALabelIsWrittenWithKeyAndAddressAndBecomesThisPcsOwn)
{
    const TestFolder folder;
    EXPECT_EQ(register_house_label("@Ann", "02AB", {.payment = "1Addr", .ordinals = {}}), "");
    EXPECT_EQ(folder.read(kFile), "{\n  \"names\": {\n    \"ann\": {\n      \"address\": \"1Addr\",\n"
                                  "      \"pubkey\": \"02ab\"\n    }\n  },\n  \"self\": \"ann\"\n}");
}

TEST(HouseLabels, WithoutAnAddressNoneIsWrittenAndTheOneOfBeforeStays)
{
    const TestFolder folder;
    EXPECT_EQ(register_house_label("ann", "02ab", {}), "");
    EXPECT_EQ(document(folder)["names"]["ann"], parse_json(R"({"pubkey":"02ab"})"));
    EXPECT_EQ(register_house_label("ann", "02ab", {.payment = "1Addr", .ordinals = {}}), "");
    EXPECT_EQ(register_house_label("ann", "02ab", {}), "");
    EXPECT_EQ(document(folder)["names"]["ann"]["address"], "1Addr");
}

TEST(HouseLabels, ANameOrAKeyThatIsEmptyIsRefused)
{
    const TestFolder folder;
    EXPECT_EQ(register_house_label(" @", "02ab", {}), kNeedName);
    EXPECT_EQ(register_house_label(" @", "", {}), kNeedName);
    EXPECT_EQ(register_house_label("ann", "", {}), "no Vaultry identity pubkey");
    EXPECT_FALSE(folder.has(kFile));
}

TEST(HouseLabels, ALabelOfAnotherKeyIsTakenAndStaysUntouched)
{
    const TestFolder folder;
    for (const char* text : {R"({"names":{"ann":{"pubkey":"03cd","address":"1Other"}},"self":"ann"})",
                             R"({"names":{"ann":{}}})", R"({"names":{"ann":"text"}})"}) {
        folder.write(kFile, text);
        EXPECT_EQ(register_house_label("Ann", "02ab", {.payment = "1Addr", .ordinals = {}}),
                  "ann@" + kDomain + " is already taken");
        EXPECT_EQ(folder.read(kFile), text);
    }
}

TEST(HouseLabels, RegisteringAgainKeepsWhatElseTheRowHolds)
{
    const TestFolder folder;
    folder.write(kFile, R"({"names":{"ann":{"pubkey":"02AB","address":"1Old","ord":"x_0","ordAddress":"1Ord",
                            "avatar":"p_0","note":"kept"}},"theme":1})");
    EXPECT_EQ(register_house_label("ann", "02ab", {.payment = "1New", .ordinals = {}}), "");
    EXPECT_EQ(document(folder),
              parse_json(R"({"names":{"ann":{"pubkey":"02ab","address":"1New","ord":"x_0","ordAddress":"1Ord",
                            "avatar":"p_0","note":"kept"}},"theme":1,"self":"ann"})"));
}

TEST(HouseLabels, TheEleventhLabelIsBeyondTheQuota)
{
    const TestFolder folder;
    folder.write(kFile, nlohmann::json{{"names", labels(9, "02AB")}}.dump());
    EXPECT_EQ(register_house_label("tenth", "02ab", {}), "");
    EXPECT_EQ(register_house_label("eleventh", "02ab", {}), "paymail quota reached (10 free labels per identity)");
    EXPECT_FALSE(document(folder)["names"].contains("eleventh"));
    EXPECT_EQ(document(folder)["self"], "tenth");
    EXPECT_EQ(register_house_label("eleventh", "03cd", {}), "");
}

TEST(HouseLabels, TheRoleOfTheHostSetsTheQuota)
{
    const TestFolder folder;
    folder.write(kFile, nlohmann::json{{"names", labels(19, "02ab")}, {"host_role", "DEV"}}.dump());
    EXPECT_EQ(register_house_label("twentieth", "02ab", {}), "");
    EXPECT_EQ(register_house_label("more", "02ab", {}), "paymail quota reached (20 free labels per identity)");
    folder.write(kFile, nlohmann::json{{"names", labels(50, "02ab")}, {"host_role", "Architect"}}.dump());
    EXPECT_EQ(register_house_label("more", "02ab", {}), "");
    EXPECT_EQ(document(folder)["host_role"], "Architect");
    folder.write(kFile, nlohmann::json{{"names", labels(10, "02ab")}, {"host_role", 7}}.dump());
    EXPECT_EQ(register_house_label("more", "02ab", {}), "paymail quota reached (10 free labels per identity)");
}

TEST(HouseLabels, AtItsQuotaAnIdentityMayRegisterWhatItHolds)
{
    const TestFolder folder;
    auto names = labels(12, "02ab");
    names["label3"]["ord"] = "x_0";
    folder.write(kFile, nlohmann::json{{"names", names}}.dump());
    EXPECT_EQ(register_house_label("label3", "02AB", {.payment = "1Addr", .ordinals = {}}), "");
    EXPECT_EQ(document(folder)["names"]["label3"], parse_json(R"({"pubkey":"02ab","address":"1Addr","ord":"x_0"})"));
    EXPECT_EQ(document(folder)["self"], "label3");
}

TEST(HouseLabels, WhatIsNoListReadsAsEmptyAndTheNextWriteReplacesIt)
{
    const TestFolder folder;
    for (const char* text : {"", "[", "[]", "7", R"({"names":[]})"}) {
        folder.write(kFile, text);
        EXPECT_EQ(house_label_of("02ab"), "") << text;
        EXPECT_EQ(folder.read(kFile), text);
        EXPECT_EQ(register_house_label("ann", "02ab", {}), "") << text;
        EXPECT_EQ(house_label_of("02ab"), "ann") << text;
    }
}

TEST(HouseLabels, RowsOfAListBelongToNobodyAndDoNotCount)
{
    const TestFolder folder;
    nlohmann::json rows = nlohmann::json::array();
    for (int i = 0; i < 10; ++i)
        rows.push_back({{"pubkey", "02ab"}});
    folder.write(kFile, nlohmann::json{{"names", rows}}.dump());
    EXPECT_EQ(house_label_of("02ab"), "");
    EXPECT_EQ(register_house_label("ann", "02ab", {}), "");
    EXPECT_EQ(document(folder)["names"], parse_json(R"({"ann":{"pubkey":"02ab"}})"));
}

TEST(HouseLabels, TheOwnLabelIsFoundBeforeTheFirstOne)
{
    const TestFolder folder;
    folder.write(kFile, R"({"names":{"c":{"pubkey":"02ab"},"b":{"pubkey":"02AB"},"a":{"pubkey":"03cd"},"0":7},
                            "self":"@C@somewhere"})");
    EXPECT_EQ(house_label_of("02Ab"), "c");
    EXPECT_EQ(house_label_of("03cd"), "a");
    EXPECT_EQ(house_label_of("04"), "");
    EXPECT_EQ(house_label_of(""), "");
}

TEST(HouseLabels, WithoutAnOwnLabelTheFirstInOrderIsFound)
{
    const TestFolder folder;
    for (const char* self : {"", "absent", "a"}) {
        folder.write(kFile, nlohmann::json{{"names", parse_json(R"({"c":{"pubkey":"02ab"},"b":{"pubkey":"02ab"},
                                                                     "a":{"pubkey":"03cd"},"Z":{"pubkey":"02ab"}})")},
                                           {"self", self}}
                                .dump());
        EXPECT_EQ(house_label_of("02ab"), "Z") << self;
    }
}

TEST(HouseLabels, ARowWithoutAKeyBelongsToNobody)
{
    const TestFolder folder;
    folder.write(kFile, R"({"names":{"a":{},"b":{"pubkey":""}},"self":"a"})");
    EXPECT_EQ(house_label_of(""), "");
}

TEST(HouseLabels, TheOlderFileIsReadOnceAndMoved)
{
    const TestFolder folder;
    std::filesystem::current_path(std::filesystem::path(std::u8string(folder.path().begin(), folder.path().end())));
    folder.write("../userinfo/corvane_paymail.json", R"({"names":{"ann":{"pubkey":"02ab"}}})");
    EXPECT_EQ(house_label_of("02ab"), "ann");
    EXPECT_EQ(folder.read(kFile), "{\n  \"names\": {\n    \"ann\": {\n      \"pubkey\": \"02ab\"\n    }\n  }\n}");
    folder.write(kFile, "{}");
    EXPECT_EQ(house_label_of("02ab"), "");
    std::filesystem::current_path(std::filesystem::temp_directory_path());
}

TEST(HouseLabels, APictureIsRecordedForTheIdentityAndItsLabels)
{
    const TestFolder folder;
    folder.write(kFile, R"({"names":{"a":{"pubkey":"02AB"},"b":{"pubkey":"03cd"}}})");
    EXPECT_EQ(set_house_avatar("02ab", "p_0"), "");
    EXPECT_EQ(document(folder), parse_json(R"({"avatars":{"02ab":"p_0"},
                                   "names":{"a":{"pubkey":"02AB","avatar":"p_0"},"b":{"pubkey":"03cd"}}})"));
}

TEST(HouseLabels, WithoutAPictureTheRecordIsRemoved)
{
    const TestFolder folder;
    folder.write(kFile, R"({"avatars":{"02ab":"p_0","03cd":"q_0"},"names":{"a":{"pubkey":"02ab","avatar":"p_0"},
                            "b":{"pubkey":"03cd","avatar":"q_0"}}})");
    EXPECT_EQ(set_house_avatar("02ab", ""), "");
    EXPECT_EQ(document(folder), parse_json(R"({"avatars":{"03cd":"q_0"},
                                   "names":{"a":{"pubkey":"02ab"},"b":{"pubkey":"03cd","avatar":"q_0"}}})"));
}

TEST(HouseLabels, APictureNeedsAnIdentity)
{
    const TestFolder folder;
    EXPECT_EQ(set_house_avatar("", "p_0"), "no identity pubkey");
    EXPECT_EQ(set_house_avatar("02ab", ""), "");
    EXPECT_FALSE(folder.has(kFile));
}

TEST(HouseLabels, TheOrdinalsAddressIsRecordedWithTheLabelsOfTheIdentity)
{
    const TestFolder folder;
    folder.write(kFile, R"({"names":{"a":{"pubkey":"02AB"},"b":{"pubkey":"03cd"},
                            "c":{"pubkey":"02ab","ord":"1BvBMSEYstWetqTFn5Au4m4GFg7xJaNVN2"}}})");
    set_house_ord_address("02ab", "1Ord");
    EXPECT_EQ(document(folder), parse_json(R"({"names":{"a":{"pubkey":"02AB","ordAddress":"1Ord"},"b":{"pubkey":"03cd"},
                  "c":{"pubkey":"02ab","ord":"1BvBMSEYstWetqTFn5Au4m4GFg7xJaNVN2","ordAddress":"1Ord"}}})"));
}

TEST(HouseLabels, WhatTheFileSaysAlreadyIsNotWrittenAgain)
{
    const TestFolder folder;
    const std::string text = R"({"names":{"a":{"pubkey":"02ab","address":"1A","ordAddress":"1Ord","avatar":"p"}},)"
                             R"("avatars":{"02ab":"p"},"self":"a"})";
    folder.write(kFile, text);
    set_house_ord_address("02ab", "1Ord");
    EXPECT_EQ(set_house_avatar("02ab", "p"), "");
    EXPECT_EQ(register_house_label("a", "02ab", {.payment = "1A", .ordinals = {}}), "");
    set_house_ord_address("", "1Ord");
    set_house_ord_address("02ab", "");
    EXPECT_EQ(folder.read(kFile), text);
}

TEST(HouseLabels, AFileThatCannotBeReadOrWrittenIsReported)
{
    const TestFolder folder;
    folder.write("corvane_paymail.json/in the way", "");
    EXPECT_EQ(register_house_label("ann", "02ab", {}), "could not read paymail registry");
    EXPECT_EQ(set_house_avatar("02ab", "p_0"), "could not write paymail registry");
}

TEST(HouseLabels, ALabelIsWrittenWithItsOrdinalsAddressAndWithoutOneTheOneOfBeforeStays)
{
    const TestFolder folder;
    EXPECT_EQ(register_house_label("ann", "02ab", {.payment = {}, .ordinals = "1Ord"}), "");
    EXPECT_EQ(parse_json(folder.read(kFile))["names"]["ann"]["ordAddress"], "1Ord");
    EXPECT_EQ(register_house_label("ann", "02ab", {}), "");
    EXPECT_EQ(parse_json(folder.read(kFile))["names"]["ann"]["ordAddress"], "1Ord");
}

TEST(HouseLabels, DigitsOfOtherMembersStayAsTheyStand)
{
    const TestFolder folder;
    folder.write(kFile, R"({"names":{"ann":{"pubkey":"02ab","since":123456789012345678901234567890}},)"
                        R"("scale":0.10,"power":1E+2,"minus":-0})");
    set_house_ord_address("02AB", "1ord");
    EXPECT_EQ(folder.read(kFile), R"({
  "minus": -0,
  "names": {
    "ann": {
      "ordAddress": "1ord",
      "pubkey": "02ab",
      "since": 123456789012345678901234567890
    }
  },
  "power": 1E+2,
  "scale": 0.10
})");
}

TEST(HouseLabels, AValueThatOnlyReadsTheSameIsNotWrittenAgain)
{
    const TestFolder folder;
    const std::string text = R"({"names":{"ann":{"ordAddress":"1ord","pubkey":"02ab"}},"scale":1.50})";
    folder.write(kFile, text);
    set_house_ord_address("02ab", "1ord");
    EXPECT_EQ(folder.read(kFile), text);
}
