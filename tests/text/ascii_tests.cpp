#include "text/ascii.h"

#include <gtest/gtest.h>

TEST(Ascii, LowersOnlyAsciiLetters)
{
    EXPECT_EQ(lower_ascii("AZaz09-\xc3\x84"), "azaz09-\xc3\x84");
}

TEST(Ascii, TrimsEveryKindOfWhiteSpaceAtBothEnds)
{
    EXPECT_EQ(trimmed(" \t\n\v\f\ra b\r\f\v\n\t "), "a b");
    EXPECT_EQ(trimmed(" \t "), "");
    EXPECT_EQ(trimmed("\xc2\xa0x"), "\xc2\xa0x");
}

TEST(Ascii, FindsAPrefixInAnyCase)
{
    EXPECT_TRUE(starts_with_ignoring_case("HTTPS://x", "https://"));
    EXPECT_FALSE(starts_with_ignoring_case("HTTP:/", "https://"));
}

TEST(Hex, EncodesTwoSmallDigitsForEveryByte)
{
    const std::uint8_t bytes[] = {0x00, 0x0f, 0xa0, 0xff};
    EXPECT_EQ(hex_encode(bytes), "000fa0ff");
}

TEST(Hex, DecodesEitherCase)
{
    EXPECT_EQ(hex_decode("00fFaB"), (std::vector<std::uint8_t>{0x00, 0xff, 0xab}));
}

TEST(Hex, GivesNothingForAnOddLengthOrABadDigit)
{
    EXPECT_TRUE(hex_decode("abc").empty());
    EXPECT_TRUE(hex_decode("zz").empty());
    EXPECT_TRUE(hex_decode("00g0").empty());
    EXPECT_TRUE(hex_decode("0x00").empty());
}

// The vectors of RFC 4648, section 10.
TEST(Base64, EncodesThePublishedVectors)
{
    EXPECT_EQ(base64_encode(""), "");
    EXPECT_EQ(base64_encode("f"), "Zg==");
    EXPECT_EQ(base64_encode("fo"), "Zm8=");
    EXPECT_EQ(base64_encode("foo"), "Zm9v");
    EXPECT_EQ(base64_encode("foob"), "Zm9vYg==");
    EXPECT_EQ(base64_encode("fooba"), "Zm9vYmE=");
    EXPECT_EQ(base64_encode("foobar"), "Zm9vYmFy");
    EXPECT_EQ(base64_encode("\xff\xef\xbe"), "/+++");
}

TEST(Base64, DecodesWhatItEncodes)
{
    std::string every_byte;
    for (int i = 0; i < 256; ++i)
        every_byte += static_cast<char>(i);
    EXPECT_EQ(base64_decode(base64_encode(every_byte)), every_byte);
}

TEST(Base64, SkipsWhatIsNotInTheAlphabet)
{
    EXPECT_EQ(base64_decode(" Zm9v\r\nYm*Fy=="), "foobar");
    EXPECT_EQ(base64_decode("=*-_"), "");
}

TEST(Base64, DropsBitsThatDoNotCompleteAByte)
{
    EXPECT_EQ(base64_decode("Zm9vZ"), "foo");
    EXPECT_EQ(base64_decode("Z"), "");
}

TEST(Joined, HasACommaBetweenTwo)
{
    EXPECT_EQ(joined({}), "");
    EXPECT_EQ(joined({"a"}), "a");
    EXPECT_EQ(joined({"", "a", "b"}), ", a, b");
}
