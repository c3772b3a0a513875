#include "settings/settings_store.h"

#include "platform/user_protection.h"
#include "support/test_folder.h"
#include "text/base64.h"
#include "text/json.h"

#include <gtest/gtest.h>

namespace {

const std::string kPassword = "abcdefghijklmnopqrstuvwx";

SiteSettings settings_with_password(const std::string& password)
{
    SiteSettings settings;
    settings.site = "https://Zo\xC3\xAB.example/blog";
    settings.user = "ann";
    settings.pass = SecretText(password);
    settings.alias = "ann";
    return settings;
}

SiteSettings loaded()
{
    SiteSettings settings;
    load_settings(settings);
    return settings;
}

}  // namespace

TEST(SettingsStore, TheFolderIsInTheDataDirectoryAndIsMade)
{
    const TestFolder folder;
    EXPECT_EQ(settings_folder(), folder.data() + "/payname");
    EXPECT_TRUE(folder.has("payname"));
}

TEST(SettingsStore, WithoutAFileAllIsEmptyAndTheFolderExists)
{
    const TestFolder folder;
    const SiteSettings settings = loaded();
    EXPECT_EQ(settings.site + settings.user + settings.pass.text() + settings.alias + saved_name(), "");
    EXPECT_TRUE(folder.has("payname"));
    EXPECT_FALSE(folder.has("payname/ui.json"));
}

TEST(SettingsStore, WhatIsSavedIsLoadedButForTheAlias)
{
    const TestFolder folder;
    save_settings(settings_with_password(kPassword), "Bob");
    const SiteSettings settings = loaded();
    EXPECT_EQ(settings.site, "https://Zo\xC3\xAB.example/blog");
    EXPECT_EQ(settings.user, "ann");
    EXPECT_EQ(settings.pass.text(), kPassword);
    EXPECT_EQ(settings.alias, "");
    EXPECT_EQ(saved_name(), "Bob");
}

TEST(SettingsStore, TheFileHoldsFourTextsInTheOrderOfTheirKeys)
{
    const TestFolder folder;
    save_settings(settings_with_password(""), "bob");
    EXPECT_EQ(folder.read("payname/ui.json"), "{\n  \"alias\": \"bob\",\n  \"pass\": \"\",\n"
                                              "  \"site\": \"https://Zo\xC3\xAB.example/blog\",\n"
                                              "  \"user\": \"ann\"\n}");
}

TEST(SettingsStore, ThePasswordIsKeptAsBase64OfItsProtectedForm)
{
    const TestFolder folder;
    save_settings(settings_with_password(kPassword), "");
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
    save_settings(settings_with_password(kPassword), "");
    save_settings(settings_with_password("another"), "");
    EXPECT_EQ(loaded().pass.text(), "another");
    save_settings(settings_with_password(""), "");
    EXPECT_EQ(loaded().pass.text(), "");
    EXPECT_EQ(parse_json(folder.read("payname/ui.json"))["pass"], "");
}

TEST(SettingsStore, SavingTheSameAgainLeavesTheFileAsItIs)
{
    const TestFolder folder;
    save_settings(settings_with_password(kPassword), "bob");
    const std::string text = folder.read("payname/ui.json");
    save_settings(settings_with_password(kPassword), "bob");
    EXPECT_EQ(folder.read("payname/ui.json"), text);
}

TEST(SettingsStore, AMalformedFileReadsAsEmptyAndIsReplacedAtTheNextSave)
{
    const TestFolder folder;
    for (const std::string& text :
         {std::string("{\"site\":"), std::string("[]"), std::string("\"site\""), std::string(100'000, '[')}) {
        folder.write("payname/ui.json", text);
        const SiteSettings settings = loaded();
        EXPECT_EQ(settings.site + settings.user + settings.pass.text() + saved_name(), "");
    }
    save_settings(settings_with_password(""), "bob");
    EXPECT_EQ(loaded().user, "ann");
}

TEST(SettingsStore, AMemberThatIsNoTextEndsTheLoadAndWhatWasTakenStays)
{
    const TestFolder folder;
    folder.write("payname/ui.json", R"({"site":"s","user":7,"pass":"","alias":"bob"})");
    EXPECT_EQ(loaded().site, "s");
    EXPECT_EQ(loaded().user, "");
    folder.write("payname/ui.json", R"({"site":null,"user":"u"})");
    EXPECT_EQ(loaded().user, "");
    folder.write("payname/ui.json", R"({"site":"s","user":"u","pass":7})");
    EXPECT_EQ(loaded().user, "u");
}

TEST(SettingsStore, APasswordBehindAMemberThatIsNoTextIsNotTaken)
{
    const TestFolder folder;
    save_settings(settings_with_password(kPassword), "");
    auto document = parse_json(folder.read("payname/ui.json"));
    for (const char* member : {"site", "user"}) {
        auto wrong = document;
        wrong[member] = 7;
        folder.write("payname/ui.json", wrong.dump());
        EXPECT_EQ(loaded().pass.text(), "") << member;
    }
    document["alias"] = 7;
    folder.write("payname/ui.json", document.dump());
    EXPECT_EQ(loaded().pass.text(), kPassword);
    EXPECT_EQ(saved_name(), "");
}

TEST(SettingsStore, AFailedLoadLeavesTheSettingsAsTheyWere)
{
    const TestFolder folder;
    for (const char* text : {"", "[]", R"({"site":7})"}) {
        folder.write("payname/ui.json", text);
        SiteSettings settings = settings_with_password(kPassword);
        load_settings(settings);
        EXPECT_EQ(settings.user, "ann") << text;
        EXPECT_EQ(settings.pass.text(), kPassword) << text;
    }
}

TEST(SettingsStore, AFolderThatCannotBeMadeIsPassedOverInSilence)
{
    const TestFolder folder;
    folder.write("payname", "in the way");
    EXPECT_EQ(settings_folder(), folder.data() + "/payname");
    save_settings(settings_with_password(kPassword), "bob");
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

TEST(SettingsStore, TextAfterTheFirstValueIsNotLookedAt)
{
    const TestFolder folder;
    folder.write("payname/ui.json", R"({"site":"s","alias":"bob"} } garbage [)");
    EXPECT_EQ(loaded().site, "s");
    EXPECT_EQ(saved_name(), "bob");
}

TEST(SettingsStore, APassThatWasNotProtectedHereIsAnEmptyPassword)
{
    const TestFolder folder;
    for (const char* pass : {"", "====", "!!", "cGxhaW4gdGV4dA==", "not base64 of anything protected"}) {
        folder.write("payname/ui.json", nlohmann::json{{"user", "u"}, {"pass", pass}}.dump());
        EXPECT_EQ(loaded().pass.text(), "") << pass;
        EXPECT_EQ(loaded().user, "u");
    }
}

TEST(SettingsStore, AFileThatCannotBeWrittenIsPassedOverInSilence)
{
    const TestFolder folder;
    folder.write("payname/ui.json/in the way", "");
    save_settings(settings_with_password(kPassword), "bob");
    EXPECT_TRUE(folder.has("payname/ui.json/in the way"));
}

TEST(SettingsStore, ANameThatIsNoUtf8IsSavedAllTheSame)
{
    const TestFolder folder;
    save_settings(settings_with_password(""), "a\xff");
    EXPECT_EQ(saved_name(), "a\xEF\xBF\xBD");
}
