#include "settings/typed_settings.h"

#include <gtest/gtest.h>

namespace {

TypedSettings typed(const char* site, const char* user, const char* password)
{
    return {site, user, SecretText(password)};
}

SiteSettings stored()
{
    SiteSettings settings;
    settings.site = "old.example";
    settings.user = "admin";
    settings.pass = StoredPassword(SecretText("abcdefghijkl"));
    settings.alias = "ann";
    return settings;
}

}  // namespace

TEST(TakeTyped, SiteAndUserLoseTheWhiteSpaceAroundThem)
{
    SiteSettings settings = stored();
    take_typed(typed(" \t\n\v\f\rhttps://New.example/a b \r\n", "\tZo\xC3\xAB Doe ", ""), settings);
    EXPECT_EQ(settings.site, "https://New.example/a b");
    EXPECT_EQ(settings.user, "Zo\xC3\xAB Doe");
    EXPECT_EQ(settings.alias, "ann");
}

TEST(TakeTyped, AnEmptySiteAndUserAreTaken)
{
    SiteSettings settings = stored();
    take_typed(typed("", " ", ""), settings);
    EXPECT_EQ(settings.site, "");
    EXPECT_EQ(settings.user, "");
}

TEST(TakeTyped, ThePasswordLosesItsSpaces)
{
    SiteSettings settings = stored();
    take_typed(typed("", "", " abcd efgh  ijkl mnop\r\n"), settings);
    EXPECT_EQ(settings.pass.in_clear().text(), "abcdefghijklmnop");
}

TEST(TakeTyped, OnlySpacesAreRemovedFromWithinThePassword)
{
    SiteSettings settings = stored();
    take_typed(typed("", "", "ab\tcd \xC2\xA0"), settings);
    EXPECT_EQ(settings.pass.in_clear().text(), "ab\tcd\xC2\xA0");
}

TEST(TakeTyped, AnEmptyPasswordKeepsTheStoredOne)
{
    for (const char* nothing : {"", " ", "    ", " \t\r\n "}) {
        SiteSettings settings = stored();
        take_typed(typed("", "", nothing), settings);
        EXPECT_EQ(settings.pass.in_clear().text(), "abcdefghijkl");
    }
}

TEST(TakeTyped, TheSamePasswordKeepsItsProtectedForm)
{
    SiteSettings settings = stored();
    const StoredPassword before = settings.pass;
    EXPECT_EQ(take_typed(typed("", "", "abcd efgh ijkl"), settings), SettingsNotice::none);
    EXPECT_EQ(settings.pass, before);
}

TEST(TakeTyped, ANewPasswordReplacesOneThatDoesNotOpen)
{
    SiteSettings settings = stored();
    settings.pass = StoredPassword::of_file("bG9ja2Vk");
    EXPECT_EQ(take_typed(typed("", "", ""), settings), SettingsNotice::none);
    EXPECT_EQ(settings.pass, StoredPassword::of_file("bG9ja2Vk"));
    EXPECT_EQ(take_typed(typed("", "", "qqqq wwww"), settings), SettingsNotice::none);
    EXPECT_EQ(settings.pass.in_clear().text(), "qqqqwwww");
}
