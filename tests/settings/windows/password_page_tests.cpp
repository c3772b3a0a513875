// The hint below the password: it opens WordPress' own page for application passwords, of the site in the field.
#include "app/windows/controls.h"
#include "app/windows/open_settings.h"
#include "kit/windows/handed_to_shell.h"
#include "kit/windows/own_window.h"
#include "kit/windows/picture.h"
#include "kit/windows/running_program.h"
#include "settings/windows/settings_window_controls.h"
#include "ui/windows/keyboard.h"

#include <gtest/gtest.h>

namespace {

constexpr wchar_t kTypeSite[] = L"Type the site first. It needs https.";

class PasswordPage : public testing::Test {
protected:
    PasswordPage()
    {
        open_settings();
        answer_messages();
    }

    HWND hint() const { return GetDlgItem(app_state().settings_window, kPasswordHint); }
    void type_site(const wchar_t* site) const { SetDlgItemTextW(app_state().settings_window, kSiteField, site); }

    // What the browser would be given after a press with this site in the field.
    std::vector<ShellStart> pages_of(const wchar_t* site) const
    {
        const ShellStarts starts;
        type_site(site);
        press(hint());
        return starts.noted();
    }

    const TestFolder folder;
    const OwnWindow window;
};

}  // namespace

TEST_F(PasswordPage, IsThatOfTheTypedSiteAndHoldsNothingElse)
{
    SetDlgItemTextW(app_state().settings_window, kUserField, L"admin");
    SetDlgItemTextW(app_state().settings_window, kPasswordField, L"secret");
    const std::vector<ShellStart> expected = {
        {L"https://example.org/blog/wp-admin/authorize-application.php?app_name=Brasslet", L""}};
    EXPECT_EQ(pages_of(L" Example.org/blog/?x=1 "), expected);
    EXPECT_EQ(pages_of(L"https://example.org/blog"), expected);
    EXPECT_EQ(app_state().settings.site, "");
}

TEST_F(PasswordPage, NeedsASiteThatCanBeUsed)
{
    for (const wchar_t* site : {L"", L"http://example.org", L"intranet", L"https://example.org:8443"}) {
        set_status(L"");
        EXPECT_TRUE(pages_of(site).empty()) << site;
        EXPECT_EQ(window.text(kStatusLine), kTypeSite);
    }
}

TEST_F(PasswordPage, ThatDoesNotOpenIsTold)
{
    EXPECT_EQ(pages_of(L"example.org").size(), 1U);
    EXPECT_EQ(window.text(kStatusLine),
              L"The page did not open. Open your profile in WordPress, and go to Application Passwords there.");
}

TEST_F(PasswordPage, ASecondClickOfADoubleClickOpensNoSecondPage)
{
    const ShellStarts starts;
    type_site(L"example.org");
    SendMessageW(app_state().settings_window, WM_COMMAND, MAKEWPARAM(kPasswordHint, STN_DBLCLK), 0);
    EXPECT_TRUE(starts.noted().empty());
}

TEST_F(PasswordPage, EnterAndSpaceOpenIt)
{
    for (const WPARAM key : {WPARAM{VK_RETURN}, WPARAM{VK_SPACE}}) {
        const ShellStarts starts;
        type_site(L"example.org");
        SendMessageW(hint(), WM_KEYDOWN, key, 0);
        EXPECT_EQ(starts.noted().size(), 1U);
    }
}

TEST_F(PasswordPage, TheFocusOnTheHintIsALineUnderItsText)
{
    const auto shows_line = [&] {
        const Picture picture = repainted(hint());
        const auto is_ink = [&](int y) { return picture.at(0, y) == kLightText && picture.at(20, y) == kLightText; };
        for (int y = 0; y < picture.height(); ++y)
            if (is_ink(y)) return picture.at(picture.width() - 1, y) == kCard;
        return false;
    };
    SetFocus(hint());
    EXPECT_FALSE(shows_line());
    set_focus_shown(app_state().settings_window, true);
    EXPECT_TRUE(shows_line());
}

TEST(PasswordPageOfTheProgram, IsOpenedByAClick)
{
    const TestFolder folder;
    const OpenedPages pages;
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kSiteField, L"corvane.example");
    click(settings.control(kPasswordHint));
    ASSERT_TRUE(pages.come_to(1));
    EXPECT_EQ(pages.addresses().front(),
              "https://corvane.example/wp-admin/authorize-application.php?app_name=Brasslet");
    EXPECT_EQ(program.text(kStatusLine), L"");
}
