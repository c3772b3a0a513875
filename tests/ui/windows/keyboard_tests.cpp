// The main window in the hands of somebody who works with the keyboard alone.
#include "kit/windows/any_window.h"
#include "kit/windows/running_program.h"

#include "app/windows/controls.h"
#include "kit/test_folder.h"
#include "settings/windows/settings_window_controls.h"
#include "ui/windows/gdi.h"

#include <gtest/gtest.h>

namespace {

// All that the keys can reach, as they are read: from left to right, from the top down.
constexpr int kInReadingOrder[] = {kConnectButton, kUnbindButton,  kSettingsButton, kNameField,
                                   kInstallButton, kPublishButton, kRemoveButton,   kCloseButton};
constexpr wchar_t kUnbound[] = L"Unbound. Connect again to pick a wallet in Vaultry.";

class Keyboard : public testing::Test {
protected:
    Keyboard() = default;
    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;
    ~Keyboard() override { put_mouse_away(); }

    HWND control(int id) const { return program.control(id); }
    bool has_focus(int id) const { return program.has_focus(control(id)); }
    void tab_to(int id) const { program.tab_to(control(id)); }

    // A window of the test itself comes to the front, as another program's does.
    HWND turn_to_another_window() const
    {
        const HWND other = CreateWindowExW(0, L"STATIC", L"another", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                           nullptr, nullptr, nullptr);
        SetForegroundWindow(other);
        EXPECT_TRUE(becomes_true([&] {
            MSG message{};
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageW(&message);
            return GetForegroundWindow() == other;
        }));
        return other;
    }

    const TestFolder folder;
    const RunningProgram program;
};

bool stands_after(const Rect& later, const Rect& earlier)
{
    return later.y >= earlier.bottom() || (later.x >= earlier.right() && later.bottom() > earlier.y);
}

}  // namespace

TEST_F(Keyboard, TabGoesThroughAllControlsInReadingOrderAndBack)
{
    ASSERT_TRUE(becomes_true([&] { return program.focus() == program.window(); }));
    for (const int id : kInReadingOrder) {
        strike(VK_TAB);
        ASSERT_TRUE(has_focus(id)) << id;
    }
    strike(VK_TAB);
    ASSERT_TRUE(has_focus(kConnectButton));
    strike(VK_TAB, VK_SHIFT);
    for (auto id = std::rbegin(kInReadingOrder); id != std::rend(kInReadingOrder); ++id) {
        ASSERT_TRUE(has_focus(*id)) << "back to " << *id;
        strike(VK_TAB, VK_SHIFT);
    }
}

TEST_F(Keyboard, WhatComesLaterStandsFurtherRightOrDown)
{
    for (std::size_t i = 1; i < std::size(kInReadingOrder); ++i)
        EXPECT_TRUE(stands_after(program.place(kInReadingOrder[i]), program.place(kInReadingOrder[i - 1])))
            << kInReadingOrder[i];
}

TEST_F(Keyboard, EnterAndSpacePressTheButtonThatHasTheFocus)
{
    for (const WORD key : {WORD{VK_RETURN}, WORD{VK_SPACE}}) {
        tab_to(kUnbindButton);
        send_to(control(kStatusLine), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L""));
        strike(key);
        EXPECT_TRUE(program.shows(kStatusLine, kUnbound)) << key;
        EXPECT_TRUE(has_focus(kUnbindButton));
    }
}

TEST_F(Keyboard, AKeyThatIsHeldPressesOnce)
{
    constexpr LPARAM kHeld = LPARAM{KF_REPEAT} << 16 | 1;
    send_to(control(kUnbindButton), WM_KEYDOWN, VK_RETURN, kHeld);
    EXPECT_EQ(program.text(kStatusLine), L"");
    send_to(control(kUnbindButton), WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_EQ(program.text(kStatusLine), kUnbound);
}

TEST_F(Keyboard, EnterInTheNameFieldAndEscapeStartNothing)
{
    for (const int id : {kNameField, kUnbindButton, kCloseButton}) {
        tab_to(id);
        if (id == kNameField) strike(VK_RETURN);
        strike(VK_ESCAPE);
        strike(VK_TAB);  // the keys before it have been taken
        ASSERT_TRUE(becomes_true([&] { return program.focus() != control(id); }));
    }
    EXPECT_EQ(program.text(kStatusLine), L"");
    EXPECT_TRUE(program.is_running());
    EXPECT_TRUE(program.answers());
}

TEST_F(Keyboard, TheArrowKeysStayOnTheirButton)
{
    EXPECT_TRUE(send_to(control(kPublishButton), WM_GETDLGCODE) & DLGC_WANTARROWS);
    tab_to(kPublishButton);
    for (const WORD key : {WORD{VK_RIGHT}, WORD{VK_LEFT}, WORD{VK_UP}, WORD{VK_DOWN}})
        strike(key);
    strike(VK_TAB);
    EXPECT_TRUE(has_focus(kRemoveButton));
}

TEST_F(Keyboard, EnterOnTheGearOpensTheSettingsWhichGiveTheFocusBack)
{
    tab_to(kSettingsButton);
    strike(VK_RETURN);
    ASSERT_TRUE(becomes_true([] { return IsWindowVisible(find_settings_window()) != FALSE; }));
    const HWND settings = find_settings_window();
    ASSERT_TRUE(program.has_focus(GetDlgItem(settings, kSiteField)));
    program.tab_to(GetDlgItem(settings, kCloseSettingsButton));
    strike(VK_RETURN);
    EXPECT_TRUE(becomes_true([&] { return !IsWindow(settings); }));
    EXPECT_TRUE(has_focus(kSettingsButton));
}

TEST_F(Keyboard, EnterOnCloseEndsTheProgram)
{
    tab_to(kCloseButton);
    strike(VK_RETURN);
    EXPECT_EQ(program.exit_code(), 0U);
}

TEST_F(Keyboard, AltF4EndsTheProgram)
{
    tab_to(kNameField);
    strike(VK_F4, VK_MENU);
    EXPECT_EQ(program.exit_code(), 0U);
}

TEST_F(Keyboard, TheCloseBoxOfTheCaptionEndsTheProgram)
{
    RECT window{};
    GetWindowRect(program.window(), &window);
    const auto is_box = [&](int x, int y) {
        return send_to(program.window(), WM_NCHITTEST, 0, MAKELPARAM(x, y)) == HTCLOSE;
    };
    int x = window.right - 1;
    const int y = window.top + GetSystemMetrics(SM_CYCAPTION) / 2 + GetSystemMetrics(SM_CYFRAME);
    while (x > window.left && !is_box(x, y))
        --x;
    ASSERT_GT(x, window.left);
    click_at(x - 3, y);
    EXPECT_EQ(program.exit_code(), 0U);
}

TEST_F(Keyboard, TheFocusIsWhereItWasWhenTheUserComesBack)
{
    tab_to(kUnbindButton);
    const HWND other = turn_to_another_window();
    EXPECT_TRUE(becomes_true([&] { return program.focus() != control(kUnbindButton); }));
    SetForegroundWindow(program.window());
    EXPECT_TRUE(has_focus(kUnbindButton));
    DestroyWindow(other);
}

TEST_F(Keyboard, TheFocusIsWhereItWasWhenTheWindowIsRestored)
{
    tab_to(kUnbindButton);
    PostMessageW(program.window(), WM_SYSCOMMAND, SC_MINIMIZE, 0);
    ASSERT_TRUE(becomes_true([&] { return IsIconic(program.window()) != FALSE; }));
    PostMessageW(program.window(), WM_SYSCOMMAND, SC_RESTORE, 0);
    EXPECT_TRUE(has_focus(kUnbindButton));
}

TEST_F(Keyboard, ShowsTheFocusFromTheFirstTabToTheNextClick)
{
    const auto shows_ring = [&](int id) {
        const Rect place = program.place(id);
        return pixel_of(program.window(), place.x + 3, place.middle()) == colorref(kButtonText);
    };
    click(control(kUnbindButton));
    ASSERT_TRUE(has_focus(kUnbindButton));
    EXPECT_FALSE(shows_ring(kUnbindButton));
    strike(VK_TAB);
    EXPECT_TRUE(becomes_true([&] { return shows_ring(kSettingsButton); }));
    strike(VK_TAB, VK_SHIFT);
    EXPECT_TRUE(becomes_true([&] { return shows_ring(kUnbindButton) && !shows_ring(kSettingsButton); }));
    click(control(kUnbindButton));
    EXPECT_TRUE(becomes_true([&] { return !shows_ring(kUnbindButton); }));
    EXPECT_TRUE(has_focus(kUnbindButton));
}

TEST_F(Keyboard, ShowsTheFocusInTheSettingsToo)
{
    const OpenSettingsWindow settings(program);
    const HWND eye = settings.control(kShowPasswordButton);
    program.tab_to(eye);
    EXPECT_TRUE(becomes_true([&] { return pixel_of(eye, 3, 16) == colorref(kButtonText); }));
}

TEST_F(Keyboard, TheSettingsGiveTheFocusBackToTheirFieldToo)
{
    const OpenSettingsWindow settings(program);
    program.tab_to(settings.control(kUserField));
    const HWND other = turn_to_another_window();
    SetForegroundWindow(settings.window());
    EXPECT_TRUE(program.has_focus(settings.control(kUserField)));
    DestroyWindow(other);
}
