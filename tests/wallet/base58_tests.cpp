#include "wallet/base58.h"

#include "text/hex.h"
#include "wallet/vectors/base58.h"

#include <gtest/gtest.h>

TEST(Base58, WritesThePublishedVectors)
{
    for (const auto& vector : kBase58Vectors)
        EXPECT_EQ(base58_encode(hex_decode(vector.hex)), vector.text);
}

TEST(Base58, ReadsThePublishedVectors)
{
    for (const auto& vector : kBase58Vectors)
        EXPECT_EQ(base58_decode(vector.text), hex_decode(vector.hex));
}

TEST(Base58, RefusesEveryCharacterOutsideTheAlphabet)
{
    EXPECT_TRUE(base58_decode("1a").has_value());
    for (const char* text : {"10", "1O", "1I", "1l", "1 ", "+", "a\n", "\xc3\xa4"})
        EXPECT_FALSE(base58_decode(text).has_value()) << text;
    EXPECT_FALSE(base58_decode(std::string_view("1\0", 2)).has_value());
}
