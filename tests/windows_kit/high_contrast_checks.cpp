// High contrast: as the messages that Windows sends bring it, with the answers of Windows made up, and for real where
// the tester agrees.
#include "kit/windows/high_contrast.h"

#include "app/windows/app_state.h"
#include "kit/test_folder.h"
#include "kit/windows/own_window.h"
#include "kit/windows/picture.h"
#include "kit/windows/running_program.h"
#include "windows_kit/expected_controls.h"
#include "windows_kit/machine.h"
#include "windows_kit/real_contrast.h"
#include "windows_kit/report.h"
#include "windows_kit/tester.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>

namespace {

// Whichever of them comes, the colours may be others.
constexpr std::array<UINT, 3> kTellOfColours = {WM_SYSCOLORCHANGE, WM_SETTINGCHANGE, WM_THEMECHANGED};

Colour system_colour(int index)
{
    const COLORREF colour = GetSysColor(index);
    return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

// Above and below everything that stands in a window.
bool is_flat_in(Colour colour, HWND window)
{
    const Picture picture(window);
    return picture.at(5, 1) == colour && picture.at(5, picture.height() - 2) == colour;
}

bool has_own_colours(HWND window)
{
    const Picture picture(window);
    return picture.at(5, 0) == kBackgroundTop && picture.at(5, picture.height() - 1) != kBackgroundTop;
}

}  // namespace

TEST(HighContrast, InMessagesAloneChangesNothing)
{
    const TestFolder folder;
    put_mouse_away();
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    if (is_in_high_contrast()) GTEST_SKIP() << "High contrast is switched on here already.";
    for (const HWND window : {program.window(), settings.window()}) {
        ASSERT_TRUE(becomes_true([&] { return has_own_colours(window); }));
        const Picture before = steady_picture(window);
        for (const UINT message : kTellOfColours) {
            send_to(window, message);
            EXPECT_TRUE(becomes_true([&] { return Picture(window) == before; })) << message;
        }
    }
    EXPECT_TRUE(program.answers());
}

// In a window of this process, which alone can be given other answers.
TEST(HighContrast, MadeUpComesAndGoesWithEachOfTheMessages)
{
    const TestFolder folder;
    put_mouse_away();
    const OwnWindow window;
    SendMessageW(window.control(kSettingsButton), BM_CLICK, 0, 0);
    answer_messages();
    const HWND settings = app_state().settings_window;
    ASSERT_NE(settings, nullptr);
    for (const UINT message : kTellOfColours) {
        const auto tell = [&] {
            for (const HWND told : {window.window(), settings})
                SendMessageW(told, message, 0, 0);
            answer_messages();
        };
        std::optional<HighContrast> scheme(std::in_place);
        tell();
        for (const HWND told : {window.window(), settings})
            EXPECT_TRUE(is_flat_in(kContrastScheme.window, told)) << message;
        EXPECT_TRUE(Picture(window.control(kPublishButton)).shows(kContrastScheme.button_text)) << message;
        if (message == kTellOfColours.front()) {
            show_picture("In made-up colours", window.window());
            show_picture("The settings in made-up colours", settings);
        }
        scheme.reset();
        tell();
        for (const HWND told : {window.window(), settings})
            EXPECT_TRUE(has_own_colours(told)) << message;
    }
}

TEST(HighContrast, SwitchedOnAndOffForRealIsFollowed)
{
    if (is_in_high_contrast()) GTEST_SKIP() << "High contrast is switched on here already.";
    if (!tester_agrees_to_high_contrast()) GTEST_SKIP() << "It was not agreed to.";
    const TestFolder folder;
    put_mouse_away();
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    std::optional<RealContrast> contrast(std::in_place);
    const bool is_on = contrast->comes_on();
    if (is_wine() && !is_on) GTEST_SKIP() << "Wine has no high contrast that could be switched on.";
    ASSERT_TRUE(is_on);
    const auto is_flat = [](HWND window) { return is_flat_in(system_colour(COLOR_WINDOW), window); };
    EXPECT_TRUE(becomes_true([&] { return is_flat(program.window()) && is_flat(settings.window()); }));
    show_picture("In high contrast", program.window());
    show_picture("The settings in high contrast", settings.window());
    contrast.reset();
    EXPECT_FALSE(is_in_high_contrast());
    EXPECT_TRUE(becomes_true([&] { return has_own_colours(program.window()) && has_own_colours(settings.window()); }));
    show_picture("Afterwards", program.window());
}
