#include "settings/site_settings.h"

#include "platform/user_protection.h"
#include "text/ascii.h"

#include <gtest/gtest.h>

TEST(SettingsNotice, EachIsOneSentenceThatSaysWhatToDo)
{
    EXPECT_EQ(notice_sentence(SettingsNotice::none), "");
    EXPECT_EQ(notice_sentence(SettingsNotice::unreadable),
              "The settings cannot be read now, and stay as they are. Press the gear to try again.");
    EXPECT_EQ(notice_sentence(SettingsNotice::damaged),
              "The settings file is damaged. Press the gear and type the settings again. The old file is kept.");
    EXPECT_EQ(notice_sentence(SettingsNotice::password_is_locked),
              "The saved application password does not open for this Windows user. Press the gear and type it again.");
    EXPECT_EQ(notice_sentence(SettingsNotice::password_is_lost),
              "Windows did not protect the application password, so it is not kept. Press the gear and type it again.");
    EXPECT_EQ(notice_sentence(SettingsNotice::not_saved),
              "The settings are not saved. Close whatever else uses ui.json, then open and close the settings again.");
}

namespace {

const std::string kPassword = "abcdefghijklmnopqrstuvwx";

}  // namespace

TEST(StoredPassword, OpensAgain)
{
    const StoredPassword stored(SecretText{kPassword});
    EXPECT_TRUE(stored.is_stored());
    EXPECT_TRUE(stored.opens());
    EXPECT_EQ(stored.in_clear().text(), kPassword);
}

TEST(StoredPassword, HoldsNothingButWhatTheFileHolds)
{
    const StoredPassword stored(SecretText{kPassword});
    const std::string& text = stored.text_for_file();
    EXPECT_EQ(text.find("abcdefgh"), std::string::npos);
    EXPECT_EQ(unprotect_for_user(base64_decode(text)).value_or(SecretText()).text(), kPassword);
    EXPECT_EQ(StoredPassword::of_file(text), stored);
    EXPECT_EQ(sizeof stored, sizeof text);
}

TEST(StoredPassword, AnEmptyOneIsNotStored)
{
    for (const StoredPassword& none : {StoredPassword(), StoredPassword(SecretText()), StoredPassword::of_file("")}) {
        EXPECT_FALSE(none.is_stored());
        EXPECT_FALSE(none.opens());
        EXPECT_EQ(none.in_clear().text(), "");
        EXPECT_EQ(none.text_for_file(), "");
    }
}

TEST(StoredPassword, KeepsATextThatDoesNotOpenAsItStands)
{
    for (const char* text : {"====", "!!", "cGxhaW4gdGV4dA==", "not base64 of anything protected"}) {
        const StoredPassword locked = StoredPassword::of_file(text);
        EXPECT_TRUE(locked.is_stored());
        EXPECT_FALSE(locked.opens());
        EXPECT_EQ(locked.text_for_file(), text);
    }
}

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
    EXPECT_EQ(take_typed(typed(" \t\n\v\f\rhttps://New.example/a b \r\n", "\tZo\xC3\xAB Doe ", ""), settings),
              SettingsNotice::none);
    EXPECT_EQ(settings.site, "https://New.example/a b");
    EXPECT_EQ(settings.user, "Zo\xC3\xAB Doe");
    EXPECT_EQ(settings.alias, "ann");
}

TEST(TakeTyped, AnEmptySiteAndUserAreTaken)
{
    SiteSettings settings = stored();
    EXPECT_EQ(take_typed(typed("", " ", ""), settings), SettingsNotice::none);
    EXPECT_EQ(settings.site, "");
    EXPECT_EQ(settings.user, "");
}

TEST(TakeTyped, ThePasswordLosesItsSpaces)
{
    SiteSettings settings = stored();
    EXPECT_EQ(take_typed(typed("", "", " abcd efgh  ijkl mnop\r\n"), settings), SettingsNotice::none);
    EXPECT_EQ(settings.pass.in_clear().text(), "abcdefghijklmnop");
}

TEST(TakeTyped, OnlySpacesAreRemovedFromWithinThePassword)
{
    SiteSettings settings = stored();
    EXPECT_EQ(take_typed(typed("", "", "ab\tcd \xC2\xA0"), settings), SettingsNotice::none);
    EXPECT_EQ(settings.pass.in_clear().text(), "ab\tcd\xC2\xA0");
}

TEST(TakeTyped, AnEmptyPasswordKeepsTheStoredOne)
{
    for (const char* nothing : {"", " ", "    ", " \t\r\n "}) {
        SiteSettings settings = stored();
        EXPECT_EQ(take_typed(typed("", "", nothing), settings), SettingsNotice::none);
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
