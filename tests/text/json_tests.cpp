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
    EXPECT_FALSE(parse_json(nested(200)).is_discarded());
    EXPECT_TRUE(parse_json(nested(201)).is_discarded());
    EXPECT_TRUE(parse_json(nested(10'000)).is_discarded());
    EXPECT_TRUE(parse_first_exact_json(nested(10'000)).is_discarded());
}

TEST(Json, BracketsInTextsDoNotCountAsLevels)
{
    const std::string text = "[\"\\\"" + std::string(10'000, '[') + "\"]";
    EXPECT_FALSE(parse_json(text).is_discarded());
}

TEST(Json, TheFirstValueIsReadAndTheRestIsNotLookedAt)
{
    EXPECT_EQ(parse_first_exact_json(R"({"a":1} }{ )" + nested(10'000))["a"], 1);
    EXPECT_EQ(parse_first_exact_json(R"( [1,"]\"]"] x)")[1], "]\"]");
    EXPECT_EQ(parse_first_exact_json("{}{}"), nlohmann::json::object());
    for (const char* text : {"", "x {}", "{\"a\":", "{]", "{[}]", "]{}", "{\"a\":\"}"})
        EXPECT_TRUE(parse_first_exact_json(text).is_discarded()) << text;
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

namespace {

std::string rewritten(const std::string& text)
{
    const auto document = parse_exact_json(text);
    return document.is_discarded() ? "discarded" : pretty_exact_json(document);
}

}  // namespace

TEST(ExactJson, KeepsTheDigitsOfEveryNumber)
{
    for (const char* number : {"0",
                               "-0",
                               "7",
                               "-7",
                               "9223372036854775808",
                               "18446744073709551615",
                               "-9223372036854775808",
                               "18446744073709551616",
                               "-9223372036854775809",
                               "123456789012345678901234567890",
                               "0.1",
                               "1.0",
                               "1.10",
                               "-0.0",
                               "1e2",
                               "1E+2",
                               "1e-2",
                               "0.30000000000000004",
                               "3.14159265358979323846264338327950288",
                               "100000000000000000000.0",
                               "1e-400"})
        EXPECT_EQ(rewritten(number), number);
}

TEST(ExactJson, KeepsNumbersAtEveryLevel)
{
    const std::string text = R"({
  "a": [
    1.50,
    {
      "b": 1.0e1,
      "c": -0
    }
  ],
  "d": 2.0
})";
    EXPECT_EQ(rewritten(text), text);
}

TEST(ExactJson, WritesEverythingElseAsPrettyJsonDoes)
{
    const std::string text =
        R"( {"z":null,"a":[],"o":{},"l":[true,false,[1,[{"x":-5}]],"ä\u00e4\"\\\n\u0000\/\ud83d\ude00"],
                                  "k\"ey\n":{"one":"two"},"":"","short":"\u001f"} )";
    EXPECT_EQ(rewritten(text), pretty_json(parse_json(text)));
    for (const char* scalar : {"null", "true", "\"x\"", "[]", "{}", "5"})
        EXPECT_EQ(rewritten(scalar), scalar);
}

TEST(ExactJson, RefusesWhatIsNoJson)
{
    for (const char* text : {"", "{", "[1,]", "{\"a\"}", "{} x", "nan", "01", "1.", "\"\xff\"", "[1}", "1e999"})
        EXPECT_EQ(rewritten(text), "discarded") << text;
}

TEST(ExactJson, RefusesWhatIsNestedTooDeeply)
{
    EXPECT_NE(rewritten(nested(200)), "discarded");
    EXPECT_EQ(rewritten(nested(201)), "discarded");
    EXPECT_EQ(rewritten(nested(100'000)), "discarded");
    std::string objects;
    for (int i = 0; i <= kDeepestJson; ++i)
        objects += "{\"a\":";
    EXPECT_EQ(rewritten(objects + "1" + std::string(kDeepestJson + 1, '}')), "discarded");
}

TEST(ExactJson, SiblingsDoNotCountAsLevels)
{
    std::string text = "[";
    for (int i = 0; i < 2 * kDeepestJson; ++i)
        text += "{},[],";
    EXPECT_NE(rewritten(text + "0]"), "discarded");
}

TEST(ExactJson, RefusesWhatIsNestedTooDeeplyBehindAZeroByteAsTheOtherFormDoes)
{
    const std::string text = std::string("null\0", 5) + std::string(kDeepestJson + 1, '[');
    EXPECT_TRUE(parse_json(text).is_discarded());
    EXPECT_TRUE(parse_exact_json(text).is_discarded());
}
