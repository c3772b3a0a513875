#include "windows_kit/pressed_buttons.h"

#include "kit/test_folder.h"
#include "kit/windows/users_files.h"
#include "windows_kit/expected_controls.h"

#include <gtest/gtest.h>

void expect_every_button_works(const std::function<void(HWND)>& press)
{
    const TestFolder folder;
    write_wallet(folder);
    const RunningProgram program;
    for (const ExpectedSentence& expected : kPresses) {
        const HWND button = program.control(expected.button);
        ASSERT_TRUE(becomes_true([&] { return IsWindowEnabled(button) != FALSE; }));
        press(button);
        EXPECT_TRUE(program.shows(kStatusLine, expected.sentence)) << expected.button;
    }
    press(program.control(kSettingsButton));
    ASSERT_TRUE(becomes_true([] { return IsWindowVisible(find_settings_window()) != FALSE; }));
    const DrivenWindow settings(find_settings_window());
    press(settings.control(kShowPasswordButton));
    EXPECT_TRUE(becomes_true([&] { return send_to(settings.control(kPasswordField), EM_GETPASSWORDCHAR) == 0; }));
    press(settings.control(kCloseSettingsButton));
    EXPECT_TRUE(becomes_true([] { return find_settings_window() == nullptr; }));
    press(program.control(kCloseButton));
    EXPECT_EQ(program.exit_code(), 0U);
}
