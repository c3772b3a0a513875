// The program as a screen reader hears it: from another process, through IAccessible and the events of the desktop.
#include "app/windows/controls.h"
#include "app/windows/workers.h"
#include "kit/test_folder.h"
#include "kit/windows/any_window.h"
#include "kit/windows/own_window.h"
#include "kit/windows/running_program.h"
#include "kit/windows/spoken.h"
#include "kit/windows/stalled_site.h"
#include "settings/windows/settings_window_controls.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

struct Expected {
    int id = 0;
    LONG role = 0;
    const wchar_t* name = nullptr;
};

// Windows says "text" of a static; Wine's own object for it says "client".
constexpr LONG kLabel = 0;
constexpr LONG kButton = ROLE_SYSTEM_PUSHBUTTON;
constexpr LONG kField = ROLE_SYSTEM_TEXT;
constexpr LONG kLink = ROLE_SYSTEM_LINK;

constexpr Expected kMainWindow[] = {
    {kConnectButton, kButton, L"Connect"},
    {kUnbindButton, kButton, L"Unbind"},
    {kSettingsButton, kButton, L"Settings"},
    {kHousePaymailCaption, kLabel, L"House paymail"},
    {kHousePaymail, kLabel, L"Connect Vaultry"},
    {kPaymentAddressCaption, kLabel, L"Payment address"},
    {kPaymentAddress, kLabel, L"Connect Vaultry"},
    {kNameCaption, kLabel, L"Name"},
    {kNameField, kField, L"Name"},
    {kNamePreview, kLabel, L"name@your-site"},
    {kNameHint, kLabel, L"Pays this house paymail. Other names stay."},
    {kKeptNames, kLabel, L""},
    {kInstallButton, kButton, L"Install plugin"},
    {kPublishButton, kButton, L"Publish"},
    {kRemoveButton, kButton, L"Remove"},
    {kCloseButton, kButton, L"Close"},
    {kStatusLine, kLabel, L""},
    {kVersionLabel, kLabel, L"Version 0.001"},
};

constexpr Expected kSettingsWindow[] = {
    {kSiteCaption, kLabel, L"Site"},
    {kSiteField, kField, L"Site"},
    {kUserCaption, kLabel, L"WordPress user"},
    {kUserField, kField, L"WordPress user"},
    {kPasswordCaption, kLabel, L"Application password"},
    {kPasswordField, kField, L"Application password"},
    {kShowPasswordButton, kButton, L"Show password"},
    {kPasswordHint, kLink,
     L"Not the site login. On your profile, Application Passwords, paste the one WordPress shows."},
    {kCloseSettingsButton, kButton, L"Close"},
};

void expect_spoken(HWND control, const Expected& expected)
{
    const Spoken heard = spoken(control);
    EXPECT_EQ(heard.name, expected.name) << expected.id;
    if (expected.role == kLabel) {
        EXPECT_TRUE(heard.role == ROLE_SYSTEM_STATICTEXT || heard.role == ROLE_SYSTEM_CLIENT) << expected.id;
    } else {
        EXPECT_EQ(heard.role, expected.role) << expected.id;
        EXPECT_TRUE(heard.is(STATE_SYSTEM_FOCUSABLE)) << expected.id;
    }
    const wchar_t* const action = expected.role == kButton ? L"Press" : L"";
    EXPECT_EQ(heard.action, expected.role == kLink ? L"Jump" : action) << expected.id;
    EXPECT_FALSE(heard.is(STATE_SYSTEM_UNAVAILABLE | STATE_SYSTEM_INVISIBLE)) << expected.id;
}

class ScreenReader : public testing::Test {
protected:
    HWND control(int id) const { return program.control(id); }

    const TestFolder folder;
    const StalledSite road{"corvane.example"};  // the program's own look for a newer build never ends
    const RunningProgram program;
};

}  // namespace

TEST_F(ScreenReader, HearsNameRoleAndStateOfEveryControlOfTheMainWindow)
{
    print_tree(program.window());
    EXPECT_EQ(spoken(program.window()).name, L"Brasslet");
    for (const Expected& expected : kMainWindow)
        expect_spoken(control(expected.id), expected);
}

TEST_F(ScreenReader, HearsNameRoleAndStateOfEveryControlOfTheSettings)
{
    const OpenSettingsWindow settings(program);
    print_tree(settings.window());
    EXPECT_EQ(spoken(settings.window()).name, L"Settings");
    for (const Expected& expected : kSettingsWindow)
        expect_spoken(settings.control(expected.id), expected);
    EXPECT_TRUE(spoken(settings.control(kPasswordField)).is(STATE_SYSTEM_PROTECTED));
}

TEST_F(ScreenReader, HearsWhatTheFieldHolds)
{
    program.type(L"ann");
    EXPECT_EQ(spoken(control(kNameField)).value, L"ann");
}

TEST_F(ScreenReader, HearsThatTheEyeWouldHideThePasswordWhileItIsShown)
{
    const OpenSettingsWindow settings(program);
    const HWND eye = settings.control(kShowPasswordButton);
    int changes = 0;
    const HeardEvents events(EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_NAMECHANGE,
                             [&](DWORD, HWND window) { changes += window == eye ? 1 : 0; });
    settings.press(kShowPasswordButton);
    EXPECT_EQ(spoken(eye).name, L"Hide password");
    EXPECT_TRUE(comes_true([&] { return changes == 1; }));
    settings.press(kShowPasswordButton);
    EXPECT_EQ(spoken(eye).name, L"Show password");
    EXPECT_TRUE(comes_true([&] { return changes == 2; }));
    EXPECT_EQ(settings.text(kShowPasswordButton), L"");
}

TEST_F(ScreenReader, HearsWhichButtonHasTheFocusAndWhichCannotBePressed)
{
    program.tab_to(control(kUnbindButton));
    EXPECT_TRUE(spoken(control(kUnbindButton)).is(STATE_SYSTEM_FOCUSED));
    EXPECT_FALSE(spoken(control(kConnectButton)).is(STATE_SYSTEM_FOCUSED));
    EnableWindow(control(kPublishButton), FALSE);
    const Spoken publish = spoken(control(kPublishButton));
    EXPECT_TRUE(publish.is(STATE_SYSTEM_UNAVAILABLE));
    EXPECT_FALSE(publish.is(STATE_SYSTEM_FOCUSABLE));
}

TEST_F(ScreenReader, PressesAButton)
{
    EXPECT_EQ(Accessible(control(kUnbindButton)).press(), S_OK);
    EXPECT_TRUE(program.shows(kStatusLine, L"Unbound. Connect again to pick a wallet in Vaultry."));
}

TEST_F(ScreenReader, CannotPressADisabledButton)
{
    EnableWindow(control(kUnbindButton), FALSE);
    EXPECT_EQ(Accessible(control(kUnbindButton)).press(), DISP_E_MEMBERNOTFOUND);
    EXPECT_TRUE(program.answers());
    EXPECT_EQ(program.text(kStatusLine), L"");
}

TEST_F(ScreenReader, HearsEveryNewSentenceOfTheStatusLine)
{
    const HWND status = control(kStatusLine);
    std::vector<std::wstring> sentences;
    const HeardEvents events(EVENT_OBJECT_LIVEREGIONCHANGED, EVENT_OBJECT_LIVEREGIONCHANGED, [&](DWORD, HWND window) {
        if (window == status) sentences.push_back(spoken(window).name);
    });
    program.press(kUnbindButton);
    EXPECT_TRUE(comes_true([&] { return sentences.size() == 1; }));
    program.press(kPublishButton);
    EXPECT_TRUE(comes_true([&] { return sentences.size() == 2; }));
    EXPECT_EQ(sentences, (std::vector<std::wstring>{L"Unbound. Connect again to pick a wallet in Vaultry.",
                                                    L"Connect a Vaultry wallet first."}));
}

TEST_F(ScreenReader, FindsTheWindowOfAButton)
{
    HWND window = nullptr;
    const Accessible button(control(kSettingsButton));
    EXPECT_EQ(WindowFromAccessibleObject(button.get(), &window), S_OK);
    EXPECT_EQ(window, control(kSettingsButton));
    LONG left = 0;
    LONG top = 0;
    LONG width = 0;
    LONG height = 0;
    VARIANT self{};
    self.vt = VT_I4;
    EXPECT_EQ(button.get()->accLocation(&left, &top, &width, &height, self), S_OK);
    RECT place{};
    GetWindowRect(control(kSettingsButton), &place);
    EXPECT_EQ((Rect{left, top, width, height}), from_windows(place));
}

TEST_F(ScreenReader, HearsALinkWhereANewerBuildIsToBeHad)
{
    PostMessageW(program.window(), MsgUpdateResult, 3, 0);
    HWND box = nullptr;
    ASSERT_TRUE(becomes_true([&] {
        box = FindWindowW(L"#32770", L"Brasslet");
        return IsWindowVisible(box) != FALSE;
    }));
    PostMessageW(GetDlgItem(box, IDNO), BM_CLICK, 0, 0);
    EXPECT_TRUE(becomes_true([&] { return !IsWindow(box); }));
    const Spoken link = spoken(control(kVersionLabel));
    EXPECT_EQ(link.name, L"Update available, https://corvane.example/brasslet");
    EXPECT_EQ(link.role, ROLE_SYSTEM_LINK);
    EXPECT_TRUE(link.is(STATE_SYSTEM_LINKED));
    EXPECT_TRUE(link.is(STATE_SYSTEM_FOCUSABLE));
    EXPECT_EQ(link.action, L"Jump");
}
