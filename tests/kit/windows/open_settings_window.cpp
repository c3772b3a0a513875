#include "kit/windows/open_settings_window.h"

#include <gtest/gtest.h>

OpenSettingsWindow::OpenSettingsWindow(const RunningProgram& program)
{
    program.press(1003);
    m_window = find_settings_window();
    if (m_window == nullptr || !IsWindowVisible(m_window)) ADD_FAILURE() << "the gear opens no window";
}

bool OpenSettingsWindow::is_masked() const
{
    constexpr LRESULT kBullet = 0x2022;
    const LRESULT mask = send_to(control(2003), EM_GETPASSWORDCHAR);
    EXPECT_TRUE(mask == kBullet || mask == 0) << mask;
    return mask == kBullet;
}

HWND find_settings_window()
{
    return FindWindowW(L"CorvaneBrassletSettings", nullptr);
}
