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
