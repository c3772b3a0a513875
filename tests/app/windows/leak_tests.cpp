// The main window and the settings window in this very process, worked hard: what they hold of the system's objects
// does not grow.
#include "app/layout.h"
#include "app/windows/app_state.h"
#include "app/windows/controls.h"
#include "app/windows/main_window.h"
#include "kit/test_folder.h"
#include "kit/windows/process_handles.h"
#include "settings/windows/settings_window_controls.h"
#include "ui/windows/keyboard.h"

#include <gtest/gtest.h>

namespace {

void answer_waiting_messages()
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
}

class HeldObjects : public testing::Test {
protected:
    HeldObjects()
    {
        register_main_window_class(GetModuleHandleW(nullptr));
        window = create_main_window(GetModuleHandleW(nullptr));
        ShowWindow(window, SW_SHOW);
        answer_waiting_messages();
    }
    HeldObjects(const HeldObjects&) = delete;
    HeldObjects& operator=(const HeldObjects&) = delete;
    ~HeldObjects() override { DestroyWindow(window); }

    static void repaint(HWND painted)
    {
        RedrawWindow(painted, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
    void change_dpi(unsigned dpi) const
    {
        const Size client = start_client_size(dpi);
        RECT suggested{0, 0, client.width, client.height};
        SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
        repaint(window);
        answer_waiting_messages();
    }
    void open_settings() const { SendMessageW(GetDlgItem(window, kSettingsButton), BM_CLICK, 0, 0); }

    const TestFolder folder;
    HWND window = nullptr;
};

// What a leak of one object in each of 200 rounds would exceed at once, and the other programs of the desktop do not.
constexpr int kSlack = 50;

}  // namespace

TEST_F(HeldObjects, DoNotGrowWithAThousandRepaints)
{
    open_settings();
    const HWND settings = app_state().settings_window;
    ASSERT_NE(settings, nullptr);
    set_focus_shown(window, true);
    SetFocus(GetDlgItem(window, kPublishButton));
    ASSERT_TRUE(shows_focus(GetDlgItem(window, kPublishButton)));
    repaint(window);
    repaint(settings);
    const ObjectCounts before = held_objects();
    const int next_before = next_window_object();
    ASSERT_GT(before.drawing, 0);
    ASSERT_GT(before.windows, 10);
    for (int i = 0; i < 500; ++i) {
        repaint(window);
        repaint(settings);
    }
    EXPECT_EQ(held_objects(), before);
    EXPECT_LT(next_window_object(), next_before + kSlack);
}

TEST_F(HeldObjects, DoNotGrowWithTwoHundredChangesOfDpi)
{
    change_dpi(144);  // the fonts of the creation stay from here on
    change_dpi(96);
    const ObjectCounts before = held_objects();
    const int next_before = next_window_object();
    for (int i = 0; i < 100; ++i) {
        change_dpi(192);
        change_dpi(96);
    }
    EXPECT_EQ(held_objects(), before);
    EXPECT_LT(next_window_object(), next_before + kSlack);
}

TEST_F(HeldObjects, DoNotGrowWithTwoHundredChangesOfTheSettingsDpi)
{
    open_settings();
    const HWND settings = app_state().settings_window;
    ASSERT_NE(settings, nullptr);
    const auto change = [settings](unsigned dpi) {
        RECT place{};
        GetWindowRect(settings, &place);
        SendMessageW(settings, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
        repaint(settings);
        answer_waiting_messages();
    };
    change(192);
    change(96);
    const ObjectCounts before = held_objects();
    const int next_before = next_window_object();
    for (int i = 0; i < 100; ++i) {
        change(192);
        change(96);
    }
    EXPECT_EQ(held_objects(), before);
    EXPECT_LT(next_window_object(), next_before + kSlack);
}

TEST_F(HeldObjects, DoNotGrowWithTwoHundredOpeningsOfTheSettings)
{
    const auto open_and_close = [this] {
        open_settings();
        SendMessageW(GetDlgItem(app_state().settings_window, kShowPasswordButton), BM_CLICK, 0, 0);
        repaint(app_state().settings_window);
        SendMessageW(app_state().settings_window, WM_CLOSE, 0, 0);
        answer_waiting_messages();
        ASSERT_EQ(app_state().settings_window, nullptr);
    };
    open_and_close();
    const ObjectCounts before = held_objects();
    const int next_before = next_window_object();
    for (int i = 0; i < 200; ++i)
        open_and_close();
    EXPECT_EQ(held_objects(), before);
    EXPECT_LT(next_window_object(), next_before + kSlack);
}
