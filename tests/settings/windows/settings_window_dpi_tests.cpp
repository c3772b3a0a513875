// The settings window on monitors of other resolutions than the main window's.
#include "app/windows/controls.h"
#include "kit/windows/any_window.h"
#include "kit/windows/drawn_texts.h"
#include "kit/windows/own_window.h"
#include "kit/windows/picture.h"
#include "settings/windows/settings_window_controls.h"
#include "ui/button_pictures.h"
#include "ui/geometry.h"

#include <gtest/gtest.h>

#include <map>

namespace {

const std::map<int, Rect> kPlaces = {
    {kSiteCaption, {20, 16, 400, 18}},          {kSiteField, {20, 36, 404, 28}},
    {kUserCaption, {20, 74, 400, 18}},          {kUserField, {20, 94, 404, 28}},
    {kPasswordCaption, {20, 132, 400, 18}},     {kPasswordField, {20, 152, 364, 32}},
    {kShowPasswordButton, {392, 152, 32, 32}},  {kPasswordHint, {20, 196, 460, 44}},
    {kCloseSettingsButton, {20, 248, 120, 34}},
};

// The frame of the test desktop stays that of its one monitor.
Size window_size_at(unsigned dpi)
{
    RECT frame{0, 0, scaled(500, dpi), scaled(360, dpi)};
    AdjustWindowRectExForDpi(&frame, WS_CAPTION | WS_SYSMENU, FALSE, WS_EX_DLGMODALFRAME, dpi);
    return {frame.right - frame.left, frame.bottom - frame.top};
}

Size size_of(HWND window)
{
    RECT place{};
    GetWindowRect(window, &place);
    return {place.right - place.left, place.bottom - place.top};
}

HFONT font_of(HWND control)
{
    return reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
}

class SettingsDpi : public testing::Test {
protected:
    HWND open() const
    {
        SendMessageW(window.control(kSettingsButton), BM_CLICK, 0, 0);
        answer_messages();
        return app_state().settings_window;
    }
    static void move_to_monitor(HWND settings, unsigned dpi)
    {
        const Size size = window_size_at(dpi);
        RECT suggested{30, 20, 30 + size.width, 20 + size.height};
        SendMessageW(settings, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
        answer_messages();
    }
    static void expect_scaled(HWND settings, unsigned dpi)
    {
        EXPECT_EQ(size_of(settings), window_size_at(dpi)) << dpi;
        for (const auto& [id, place] : kPlaces) {
            const Rect expected{scaled(place.x, dpi), scaled(place.y, dpi), scaled(place.width, dpi),
                                scaled(place.height, dpi)};
            EXPECT_EQ(place_of(GetDlgItem(settings, id)), expected) << id << " at " << dpi;
            const bool is_small = id >= kPasswordHint && id <= kPasswordCaption;
            EXPECT_EQ(-description(font_of(GetDlgItem(settings, id))).lfHeight, scaled(is_small ? 14 : 16, dpi)) << id;
        }
    }

    const TestFolder folder;
    const OwnWindow window;
};

}  // namespace

TEST_F(SettingsDpi, FollowsItsMonitorInSizePlacesAndFonts)
{
    const HWND settings = open();
    for (const unsigned dpi : {144U, 192U, 120U, 96U}) {
        move_to_monitor(settings, dpi);
        RECT place{};
        GetWindowRect(settings, &place);
        EXPECT_EQ(place.left, 30);
        EXPECT_EQ(place.top, 20);
        expect_scaled(settings, dpi);
        save_picture(repainted(settings), "settings-moved-" + std::to_string(dpi));
    }
    EXPECT_EQ(app_state().dpi, 96U);
}

TEST_F(SettingsDpi, ItsButtonsAreDrawnAtItsScale)
{
    const HWND settings = open();
    move_to_monitor(settings, 192);
    const Picture eye = repainted(GetDlgItem(settings, kShowPasswordButton));
    const Line slash = *eye_on({0, 0, 64, 64}, 192, false, true).slash;
    EXPECT_EQ(eye.at(32, 32), kButtonText);
    EXPECT_EQ(eye.at(slash.from.x + 1, slash.from.y - 1), kButtonText);
}

TEST_F(SettingsDpi, KeepsWhatIsTypedAndThatThePasswordIsMasked)
{
    const HWND settings = open();
    SetDlgItemTextW(settings, kSiteField, L"typed.example");
    SetDlgItemTextW(settings, kPasswordField, L"qqqq wwww");
    move_to_monitor(settings, 144);
    EXPECT_EQ(text_of(GetDlgItem(settings, kSiteField)), L"typed.example");
    EXPECT_EQ(text_of(GetDlgItem(settings, kPasswordField)), L"qqqq wwww");
    EXPECT_EQ(SendDlgItemMessageW(settings, kPasswordField, EM_GETPASSWORDCHAR, 0, 0), 0x2022);
}

TEST_F(SettingsDpi, TheFontsOfTheScaleBeforeAreDeleted)
{
    const HWND settings = open();
    const HFONT body = font_of(GetDlgItem(settings, kSiteField));
    const HFONT small_font = font_of(GetDlgItem(settings, kSiteCaption));
    ASSERT_EQ(GetObjectType(body), static_cast<DWORD>(OBJ_FONT));
    move_to_monitor(settings, 144);
    EXPECT_EQ(GetObjectType(body), 0U);
    EXPECT_EQ(GetObjectType(small_font), 0U);
}

TEST_F(SettingsDpi, AsksForItsOwnSizeAtEveryScale)
{
    const HWND settings = open();
    for (const unsigned dpi : {96U, 144U, 192U}) {
        SIZE size{1, 1};
        EXPECT_EQ(SendMessageW(settings, WM_GETDPISCALEDSIZE, dpi, reinterpret_cast<LPARAM>(&size)), TRUE);
        EXPECT_EQ((Size{size.cx, size.cy}), window_size_at(dpi)) << dpi;
    }
}

TEST_F(SettingsDpi, OpensAtTheScaleOfItsOwnMonitor)
{
    const Monitors monitors(96, 144);
    const HWND settings = open();
    expect_scaled(settings, 144);
    EXPECT_EQ(app_state().dpi, 96U);
}

TEST_F(SettingsDpi, OpensAtTheScaleOfTheMainWindowOnTheSameMonitor)
{
    const Monitors monitors(144, 144);
    window.change_dpi(144, window.rectangle());
    expect_scaled(open(), 144);
}
