// What becomes of the settings window's fields: the password's eye, the ways of closing, and a flow that starts.
#include "app/windows/controls.h"
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "kit/windows/stalled_site.h"
#include "kit/windows/users_files.h"
#include "settings/settings_store.h"
#include "settings/windows/settings_window_controls.h"

#include <gtest/gtest.h>

namespace {

constexpr char kPassword[] = "abcdefghijklmnopqrstuvwx";
constexpr wchar_t kWidePassword[] = L"abcdefghijklmnopqrstuvwx";

// As when the user copies it on the profile page of WordPress.
void put_on_clipboard(const std::wstring& text)
{
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    memcpy(GlobalLock(memory), text.c_str(), size);
    GlobalUnlock(memory);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

class SettingsFields : public testing::Test {
protected:
    SettingsFields() { save({"old.example", "admin", kPassword}); }

    const TestFolder folder;
};

}  // namespace

TEST_F(SettingsFields, TheEyeShowsTheStoredPasswordAndHidesItAgain)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.press(kShowPasswordButton);
    EXPECT_FALSE(settings.is_masked());
    EXPECT_EQ(settings.text(kPasswordField), kWidePassword);
    settings.press(kShowPasswordButton);
    EXPECT_TRUE(settings.is_masked());
    EXPECT_EQ(settings.text(kPasswordField), kWidePassword);
}

TEST_F(SettingsFields, TheEyeWithoutAStoredPasswordShowsNothing)
{
    save({"old.example", "admin", ""});
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.press(kShowPasswordButton);
    EXPECT_FALSE(settings.is_masked());
    EXPECT_EQ(settings.text(kPasswordField), L"");
    settings.press(kShowPasswordButton);
    EXPECT_TRUE(settings.is_masked());
}

TEST_F(SettingsFields, TheEyeLeavesWhatIsTypedAlready)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kPasswordField, L"new one");
    settings.press(kShowPasswordButton);
    EXPECT_FALSE(settings.is_masked());
    EXPECT_EQ(settings.text(kPasswordField), L"new one");
}

TEST_F(SettingsFields, EveryOpeningStartsWithAnEmptyMaskedField)
{
    const RunningProgram program;
    const OpenSettingsWindow first(program);
    first.press(kShowPasswordButton);
    first.close_by_box();
    const OpenSettingsWindow second(program);
    EXPECT_TRUE(second.is_masked());
    EXPECT_EQ(second.text(kPasswordField), L"");
    second.press(kShowPasswordButton);
    EXPECT_FALSE(second.is_masked());
    EXPECT_EQ(second.text(kPasswordField), kWidePassword);
}

TEST_F(SettingsFields, AreTakenByTheCloseButton)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kSiteField, L"  New.example \t");
    settings.type(kUserField, L" Zo\u00EB ");
    settings.type(kPasswordField, L"qqqqwwww");
    program.type(L"Ann");
    settings.press(kCloseSettingsButton);
    EXPECT_FALSE(settings.is_open());
    EXPECT_EQ(saved().site, "New.example");
    EXPECT_EQ(saved().user, "Zo\xC3\xAB");
    EXPECT_EQ(saved().password, "qqqqwwww");
    EXPECT_EQ(saved_name(), "Ann");
    EXPECT_EQ(program.text(kNamePreview), L"ann@new.example");
}

TEST_F(SettingsFields, AreTakenByTheCaptionsCloseBox)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kSiteField, L"new.example");
    settings.close_by_box();
    EXPECT_FALSE(settings.is_open());
    EXPECT_EQ(saved().site, "new.example");
    EXPECT_EQ(saved().user, "admin");
    EXPECT_EQ(saved().password, kPassword);
}

TEST_F(SettingsFields, AreThereAgainAtTheNextOpening)
{
    const RunningProgram program;
    const OpenSettingsWindow first(program);
    first.type(kSiteField, L"new.example");
    first.close_by_box();
    const OpenSettingsWindow second(program);
    EXPECT_EQ(second.text(kSiteField), L"new.example");
    EXPECT_EQ(second.text(kUserField), L"admin");
}

TEST_F(SettingsFields, APasswordThatWasOnlyLookedAtIsKept)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.press(kShowPasswordButton);
    settings.press(kCloseSettingsButton);
    EXPECT_EQ(saved().password, kPassword);
}

TEST_F(SettingsFields, APasswordPastedInGroupsIsKeptWithoutTheSpaces)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    put_on_clipboard(L"qwer tyui opas dfgh jklz xcvb");
    send_to(settings.control(kPasswordField), WM_PASTE);
    EXPECT_EQ(settings.text(kPasswordField), L"qwer tyui opas dfgh jklz xcvb");
    settings.press(kCloseSettingsButton);
    EXPECT_EQ(saved().password, "qwertyuiopasdfghjklzxcvb");
    const OpenSettingsWindow again(program);
    again.press(kShowPasswordButton);
    EXPECT_EQ(again.text(kPasswordField), L"qwertyuiopasdfghjklzxcvb");
}

TEST_F(SettingsFields, AreNotTakenWhenTheMainWindowCloses)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kSiteField, L"new.example");
    settings.type(kPasswordField, L"other");
    program.type(L"Zoe");
    EXPECT_EQ(program.close(), 0U);
    EXPECT_EQ(find_settings_window(), nullptr);
    EXPECT_EQ(saved().site, "old.example");
    EXPECT_EQ(saved().password, kPassword);
    EXPECT_EQ(saved_name(), "Zoe");
}

TEST_F(SettingsFields, AreTakenAndSavedWhenAFlowStarts)
{
    write_wallet(folder);
    StalledSite site("new.example");
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kSiteField, L"new.example");
    settings.type(kPasswordField, L"qqqq wwww");
    program.type(L"Ann");
    program.press(kPublishButton);
    ASSERT_TRUE(site.is_asked());
    EXPECT_TRUE(settings.is_open());
    EXPECT_EQ(saved().site, "new.example");
    EXPECT_EQ(saved().password, "qqqqwwww");
    EXPECT_FALSE(IsWindowEnabled(program.control(kSettingsButton)));
    site.close();
    EXPECT_TRUE(becomes_true([&] { return IsWindowEnabled(program.control(kSettingsButton)) != FALSE; }));
}
