#include "text/json.h"

#include <gtest/gtest.h>

namespace {

std::string nested(int levels)
{
    return std::string(static_cast<std::size_t>(levels), '[') + std::string(static_cast<std::size_t>(levels), ']');
}

}  // namespace

TEST(Json, ReadsADocument)
{
    EXPECT_EQ(parse_json(R"({"a":[1,"{"]})")["a"][1], "{");
}

TEST(Json, RefusesWhatIsNoJson)
{
    EXPECT_TRUE(parse_json("").is_discarded());
    EXPECT_TRUE(parse_json("<html>").is_discarded());
    EXPECT_TRUE(parse_json("{} x").is_discarded());
    EXPECT_TRUE(parse_json("{\"a\":\"\xff\"}").is_discarded());
}

TEST(Json, RefusesWhatIsNestedTooDeeply)
{
    EXPECT_FALSE(parse_json(nested(kDeepestJson)).is_discarded());
    EXPECT_TRUE(parse_json(nested(kDeepestJson + 1)).is_discarded());
    EXPECT_TRUE(parse_json(nested(10'000)).is_discarded());
    EXPECT_TRUE(parse_first_json(nested(10'000)).is_discarded());
}

TEST(Json, BracketsInTextsDoNotCountAsLevels)
{
    const std::string text = "[\"\\\"" + std::string(10'000, '[') + "\"]";
    EXPECT_FALSE(parse_json(text).is_discarded());
}

TEST(Json, TheFirstValueIsReadAndTheRestIsNotLookedAt)
{
    EXPECT_EQ(parse_first_json(R"({"a":1} }{ )" + nested(10'000))["a"], 1);
    EXPECT_EQ(parse_first_json(R"( [1,"]\"]"] x)")[1], "]\"]");
    EXPECT_EQ(parse_first_json("{}{}"), nlohmann::json::object());
    for (const char* text : {"", "x {}", "{\"a\":", "{]", "{[}]", "]{}", "{\"a\":\"}"})
        EXPECT_TRUE(parse_first_json(text).is_discarded()) << text;
}

TEST(Json, ATextMemberIsEmptyUnlessItIsAText)
{
    const auto object = parse_json(R"({"text":"x","number":1})");
    EXPECT_EQ(text_member(object, "text"), "x");
    EXPECT_EQ(text_member(object, "number"), "");
    EXPECT_EQ(text_member(object, "absent"), "");
    EXPECT_EQ(text_member(parse_json("[]"), "text"), "");
    EXPECT_EQ(text_member(parse_json("no"), "text"), "");
}

TEST(Json, WritesBadUtf8AsReplacementCharacters)
{
    EXPECT_EQ(compact_json({{"b", 1}, {"a", "\xff"}}), "{\"a\":\"\xef\xbf\xbd\",\"b\":1}");
    EXPECT_EQ(pretty_json({{"a", 1}}), "{\n  \"a\": 1\n}");
}
