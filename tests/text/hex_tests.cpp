#include "text/hex.h"

#include <gtest/gtest.h>

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
