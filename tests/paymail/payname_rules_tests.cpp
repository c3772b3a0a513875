#include "paymail/payname_rules.h"

#include <gtest/gtest.h>

#include <string>

TEST(Alias, IsOneTo64LettersDigitsAndFourSigns)
{
    EXPECT_TRUE(is_valid_alias("a"));
    EXPECT_TRUE(is_valid_alias("Zoe.9+x-y_z"));
    EXPECT_TRUE(is_valid_alias("..."));
    EXPECT_TRUE(is_valid_alias(std::string(64, 'a')));
}

TEST(Alias, IsNothingElse)
{
    EXPECT_FALSE(is_valid_alias(""));
    EXPECT_FALSE(is_valid_alias(std::string(65, 'a')));
    for (const char* alias : {"a b", "a@b", "a/b", "a{b", "a%b", "a\n", "\xc3\xa4"})
        EXPECT_FALSE(is_valid_alias(alias)) << alias;
    EXPECT_FALSE(is_valid_alias(std::string("a\0b", 3)));
}

TEST(Host, IsThreeTo253WithADotInside)
{
    EXPECT_TRUE(is_valid_host("a.b"));
    EXPECT_TRUE(is_valid_host("Example-1.org"));
    EXPECT_TRUE(is_valid_host("127.0.0.1"));
    EXPECT_TRUE(is_valid_host(std::string(251, 'a') + ".b"));
}

TEST(Host, IsNothingElse)
{
    EXPECT_FALSE(is_valid_host(std::string(252, 'a') + ".b"));
    for (const char* host : {"", ".b", "a.", "ab", "localhost", ".a.b", "a.b.", "a..b", "a_b.c", "a.b:443", "a@b.c",
                             "a.b/c", "a b.c", "\xc3\xa4.de"})
        EXPECT_FALSE(is_valid_host(host)) << host;
}
