// The settings when their file cannot be read or renamed, or the password not encrypted.
#include "kit/stand_in/stand_in.h"
#include "kit/test_folder.h"
#include "platform/files.h"
#include "settings/settings_store.h"
#include "settings/site_settings.h"
#include "settings/stored_settings.h"

#include <gtest/gtest.h>

namespace {

constexpr char kFile[] = "payname/ui.json";

// The file has settings and cannot be read when the program starts.
class UnreadableSettings : public testing::Test {
protected:
    UnreadableSettings()
    {
        SiteSettings kept;
        kept.site = "kept.example";
        kept.user = "admin";
        kept.pass = StoredPassword(SecretText("abcdefgh"));
        EXPECT_EQ(save_settings(kept, "ann"), SettingsNotice::none);
        text = folder.read(kFile);
        stand_in().files.reads_fail = true;
        notice = load_settings(settings);
    }
    void let_it_be_read() const { stand_in().files.reads_fail = false; }
    SiteSettings on_disk() const
    {
        let_it_be_read();
        return loaded();
    }

    const TestFolder folder;
    std::string text;
    SiteSettings settings;
    SettingsNotice notice = SettingsNotice::none;
};

}  // namespace

TEST_F(UnreadableSettings, AreEmptyAndToldOf)
{
    EXPECT_EQ(notice, SettingsNotice::unreadable);
    EXPECT_EQ(settings.site + settings.user + settings.pass.text_for_file(), "");
}

TEST_F(UnreadableSettings, AreNotWrittenOverByEmptyOnes)
{
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::not_saved);
    stand_in().files.reads_fail = false;
    EXPECT_EQ(folder.read(kFile), text);
}

TEST_F(UnreadableSettings, AreNotWrittenOverByWhatWasTypedEither)
{
    settings.site = "typed.example";
    EXPECT_EQ(save_settings(settings, "bob"), SettingsNotice::not_saved);
    stand_in().files.reads_fail = false;
    EXPECT_EQ(folder.read(kFile), text);
}

TEST_F(UnreadableSettings, AreLeftAsTheyAreByASaveThatCanReadThemAgain)
{
    let_it_be_read();
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::none);
    EXPECT_EQ(folder.read(kFile), text);
    EXPECT_EQ(settings.site + settings.user + settings.pass.in_clear().text(), "kept.exampleadminabcdefgh");
    EXPECT_FALSE(settings.wait_for_file);
}

TEST_F(UnreadableSettings, KeepAllThatWasNotTypedAnew)
{
    EXPECT_EQ(take_typed({"typed.example", "", SecretText()}, settings), SettingsNotice::none);
    let_it_be_read();
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::none);
    EXPECT_EQ(on_disk().site, "typed.example");
    EXPECT_EQ(on_disk().user, "admin");
    EXPECT_EQ(on_disk().pass.in_clear().text(), "abcdefgh");
    EXPECT_EQ(saved_name(), "ann");
}

TEST_F(UnreadableSettings, GiveWayToAllThatWasTyped)
{
    EXPECT_EQ(take_typed({"typed.example", "zoe", SecretText("qqqqwwww")}, settings), SettingsNotice::none);
    let_it_be_read();
    EXPECT_EQ(save_settings(settings, "bob"), SettingsNotice::none);
    EXPECT_EQ(on_disk().site + on_disk().user + on_disk().pass.in_clear().text(), "typed.examplezoeqqqqwwww");
    EXPECT_EQ(saved_name(), "bob");
}

TEST_F(UnreadableSettings, AreReadWhenTheyCanBe)
{
    EXPECT_EQ(load_what_waits(settings), SettingsNotice::unreadable);
    EXPECT_TRUE(settings.wait_for_file);
    let_it_be_read();
    EXPECT_EQ(load_what_waits(settings), SettingsNotice::none);
    EXPECT_FALSE(settings.wait_for_file);
    EXPECT_EQ(settings.site, "kept.example");
    settings.site.clear();
    EXPECT_EQ(load_what_waits(settings), SettingsNotice::none);
    EXPECT_EQ(settings.site, "");
}

TEST_F(UnreadableSettings, OnceReadAreSavedAsTheyWereTyped)
{
    let_it_be_read();
    EXPECT_EQ(load_what_waits(settings), SettingsNotice::none);
    EXPECT_EQ(take_typed({"", "zoe", SecretText()}, settings), SettingsNotice::none);
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::none);
    EXPECT_EQ(on_disk().site, "");
    EXPECT_EQ(on_disk().user, "zoe");
    EXPECT_EQ(saved_name(), "");
}

TEST_F(UnreadableSettings, ThatAreGoneByThenAreWrittenAnew)
{
    let_it_be_read();
    ASSERT_TRUE(remove_file(folder.data() + "/" + kFile));
    EXPECT_EQ(load_what_waits(settings), SettingsNotice::none);
    EXPECT_FALSE(settings.wait_for_file);
    settings.user = "zoe";
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::none);
    EXPECT_EQ(on_disk().user, "zoe");
}

TEST_F(UnreadableSettings, WithAPasswordThatDoesNotOpenAreToldOfWhenASaveReadsThem)
{
    let_it_be_read();
    folder.write(kFile, R"({"pass":"bG9ja2Vk"})");
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::password_is_locked);
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::none);
}

TEST_F(UnreadableSettings, ThatTurnOutDamagedAreToldOfWhenASaveReadsThem)
{
    let_it_be_read();
    folder.write(kFile, "{damaged");
    settings.user = "zoe";
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::damaged);
    EXPECT_EQ(on_disk().user, "zoe");
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::none);
}

TEST_F(UnreadableSettings, ThatTurnOutDamagedAreToldOfAndKeptWithNothingToSave)
{
    let_it_be_read();
    folder.write(kFile, "{damaged");
    EXPECT_EQ(load_what_waits(settings), SettingsNotice::damaged);
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::none);
    EXPECT_EQ(folder.read(kFile), "{damaged");
}

TEST(SettingsFaults, SettingsThatCanNoLongerBeReadAreNotWrittenOver)
{
    const TestFolder folder;
    SiteSettings settings;
    settings.user = "ann";
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::none);
    const std::string text = folder.read(kFile);
    stand_in().files.reads_fail = true;
    settings.user = "zoe";
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::not_saved);
    stand_in().files.reads_fail = false;
    EXPECT_EQ(folder.read(kFile), text);
}

TEST(SettingsFaults, ADamagedFileThatCannotBeMovedIsNotReplaced)
{
    const TestFolder folder;
    folder.write(kFile, "{damaged");
    stand_in().files.renames_fail = true;
    SiteSettings settings;
    settings.user = "ann";
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::not_saved);
    EXPECT_EQ(folder.read(kFile), "{damaged");
}

TEST(SettingsFaults, AFullDiskIsPassedOverInSilence)
{
    const TestFolder folder;
    SiteSettings settings;
    EXPECT_EQ(save_settings(settings, "a"), SettingsNotice::none);
    const std::string text = folder.read(kFile);
    stand_in().files.largest_file = text.size();
    EXPECT_EQ(save_settings(settings, "a longer name"), SettingsNotice::none);
    EXPECT_EQ(folder.read(kFile), text);
}

TEST(SettingsFaults, APasswordThatCannotBeProtectedIsNotSavedAndToldOf)
{
    const TestFolder folder;
    SiteSettings settings;
    stand_in().protection_works = false;
    EXPECT_EQ(take_typed({"s", "u", SecretText("a password")}, settings), SettingsNotice::password_is_lost);
    EXPECT_EQ(save_settings(settings, ""), SettingsNotice::none);
    EXPECT_EQ(folder.read(kFile), "{\n  \"alias\": \"\",\n  \"pass\": \"\",\n  \"site\": \"s\",\n  \"user\": \"u\"\n}");
}

TEST(SettingsFaults, UnchangedSettingsAreNotWrittenAgain)
{
    const TestFolder folder;
    SiteSettings settings;
    EXPECT_EQ(save_settings(settings, "a"), SettingsNotice::none);
    stand_in().files.written.clear();
    EXPECT_EQ(save_settings(settings, "a"), SettingsNotice::none);
    EXPECT_TRUE(stand_in().files.written.empty());
}
