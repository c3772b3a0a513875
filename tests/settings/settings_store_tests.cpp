#include "settings/settings_store.h"

#include "kit/test_folder.h"
#include "platform/user_protection.h"
#include "settings/stored_settings.h"
#include "text/ascii.h"
#include "text/clock.h"
#include "text/json.h"

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <vector>

TEST(SettingsStore, WithoutAFileAllIsEmptyAndTheFolderIsMade)
{
    const TestFolder folder;
    const SiteSettings settings = loaded();
    EXPECT_TRUE(folder.has("payname"));
    EXPECT_EQ(settings.site + settings.user + settings.pass.in_clear().text() + settings.alias + saved_name(), "");
    EXPECT_TRUE(folder.has("payname"));
    EXPECT_FALSE(folder.has("payname/ui.json"));
}

TEST(SettingsStore, WhatIsSavedIsLoadedButForTheAlias)
{
    const TestFolder folder;
    save(settings_with_password(kPassword), "Bob");
    const SiteSettings settings = loaded();
    EXPECT_EQ(settings.site, "https://Zo\xC3\xAB.example/blog");
    EXPECT_EQ(settings.user, "ann");
    EXPECT_EQ(settings.pass.in_clear().text(), kPassword);
    EXPECT_EQ(settings.alias, "");
    EXPECT_EQ(saved_name(), "Bob");
}

TEST(SettingsStore, TheFileHoldsFourTextsInTheOrderOfTheirKeys)
{
    const TestFolder folder;
    save(settings_with_password(""), "bob");
    EXPECT_EQ(folder.read("payname/ui.json"), "{\n  \"alias\": \"bob\",\n  \"pass\": \"\",\n"
                                              "  \"site\": \"https://Zo\xC3\xAB.example/blog\",\n"
                                              "  \"user\": \"ann\"\n}");
}

TEST(SettingsStore, ThePasswordIsKeptAsBase64OfItsProtectedForm)
{
    const TestFolder folder;
    save(settings_with_password(kPassword), "");
    const std::string text = folder.read("payname/ui.json");
    EXPECT_EQ(text.find(kPassword), std::string::npos);
    const std::string pass = text_member(parse_json(text), "pass");
    EXPECT_EQ(base64_encode(base64_decode(pass)), pass);
    const auto password = unprotect_for_user(base64_decode(pass));
    ASSERT_TRUE(password);
    EXPECT_EQ(password->text(), kPassword);
}

TEST(SettingsStore, AnotherPasswordReplacesTheProtectedForm)
{
    const TestFolder folder;
    save(settings_with_password(kPassword), "");
    save(settings_with_password("another"), "");
    EXPECT_EQ(loaded().pass.in_clear().text(), "another");
    save(settings_with_password(""), "");
    EXPECT_EQ(loaded().pass.in_clear().text(), "");
    EXPECT_EQ(parse_json(folder.read("payname/ui.json"))["pass"], "");
}

TEST(SettingsStore, SavingTheSameAgainLeavesTheFileAsItIs)
{
    const TestFolder folder;
    SiteSettings settings = settings_with_password(kPassword);
    EXPECT_EQ(save_settings(settings, "bob"), SettingsNotice::none);
    const std::string text = folder.read("payname/ui.json");
    EXPECT_EQ(save_settings(settings, "bob"), SettingsNotice::none);
    EXPECT_EQ(folder.read("payname/ui.json"), text);
}

TEST(SettingsStore, WhatWasLoadedIsSavedWithTheSameProtectedForm)
{
    const TestFolder folder;
    save(settings_with_password(kPassword), "bob");
    const std::string text = folder.read("payname/ui.json");
    save(loaded(), "bob");
    EXPECT_EQ(folder.read("payname/ui.json"), text);
}

TEST(SettingsStore, OfAFileThatIsMissingOrGoodThereIsNothingToTell)
{
    const TestFolder folder;
    EXPECT_EQ(notice_of_load(), SettingsNotice::none);
    EXPECT_EQ(save(settings_with_password(kPassword), "bob"), SettingsNotice::none);
    EXPECT_EQ(notice_of_load(), SettingsNotice::none);
    folder.write("payname/ui.json", "{}");
    EXPECT_EQ(notice_of_load(), SettingsNotice::none);
}

TEST(SettingsStore, EverySingleSettingIsSomethingToSave)
{
    for (const auto& [site, user, password, name] : {std::array{"s", "", "", ""}, std::array{"", "u", "", ""},
                                                     std::array{"", "", "p", ""}, std::array{"", "", "", "n"}}) {
        const TestFolder folder;
        folder.write("payname/ui.json", "{damaged");
        SiteSettings settings;
        settings.site = site;
        settings.user = user;
        settings.pass = StoredPassword(SecretText(password));
        save(settings, name);
        EXPECT_EQ(notice_of_load(), SettingsNotice::none) << site << user << password << name;
    }
}

TEST(SettingsStore, MembersThatItDoesNotKnowStayWithTheirDigits)
{
    const TestFolder folder;
    folder.write("payname/ui.json",
                 R"({"site":"s","later":[0.10,12345678901234567890123,-0],"zoom":1.50,"alias":"a"})");
    EXPECT_EQ(notice_of_load(), SettingsNotice::none);
    save(settings_with_password(""), "bob");
    EXPECT_EQ(folder.read("payname/ui.json"), "{\n  \"alias\": \"bob\",\n"
                                              "  \"later\": [\n    0.10,\n    12345678901234567890123,\n    -0\n  ],\n"
                                              "  \"pass\": \"\",\n"
                                              "  \"site\": \"https://Zo\xC3\xAB.example/blog\",\n"
                                              "  \"user\": \"ann\",\n  \"zoom\": 1.50\n}");
}

TEST(SettingsStore, APasswordThatDoesNotOpenStaysInTheFileUntilANewOneIsTyped)
{
    const TestFolder folder;
    const std::string locked = "bm90IG9wZW5lZCBoZXJl=!";
    folder.write("payname/ui.json", nlohmann::json{{"site", "s"}, {"user", "u"}, {"pass", locked}}.dump());
    SiteSettings settings;
    EXPECT_EQ(load_settings(settings), SettingsNotice::password_is_locked);
    EXPECT_FALSE(settings.pass.opens());
    settings.site = "other";
    EXPECT_EQ(save_settings(settings, "bob"), SettingsNotice::none);
    EXPECT_EQ(parse_json(folder.read("payname/ui.json"))["pass"], locked);
    EXPECT_EQ(loaded().site, "other");

    settings.pass = StoredPassword(SecretText(kPassword));
    EXPECT_EQ(save_settings(settings, "bob"), SettingsNotice::none);
    EXPECT_EQ(loaded().pass.in_clear().text(), kPassword);
    EXPECT_EQ(notice_of_load(), SettingsNotice::none);
}

TEST(SettingsStore, AFolderThatCannotBeMadeIsPassedOverInSilence)
{
    const TestFolder folder;
    folder.write("payname", "in the way");
    EXPECT_EQ(save(settings_with_password(kPassword), "bob"), SettingsNotice::none);
    EXPECT_EQ(loaded().user + saved_name(), "");
    EXPECT_EQ(folder.read("payname"), "in the way");
}

TEST(SettingsStore, AbsentMembersAreEmpty)
{
    const TestFolder folder;
    folder.write("payname/ui.json", R"({"user":"u"})");
    EXPECT_EQ(loaded().site, "");
    EXPECT_EQ(loaded().user, "u");
    EXPECT_EQ(saved_name(), "");
}

TEST(SettingsStore, ANameThatIsNoUtf8IsSavedAllTheSame)
{
    const TestFolder folder;
    save(settings_with_password(""), "a\xff");
    EXPECT_EQ(saved_name(), "a\xEF\xBF\xBD");
}
