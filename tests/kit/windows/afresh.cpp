// What tests of windows leave in the process, besides what every test program starts afresh.
#include "kit/test_program/afresh.h"
#include "app/windows/app_state.h"
#include "app/windows/main_window.h"
#include "kit/windows/own_window.h"
#include "ui/windows/theme.h"

#include <windows.h>

namespace {

BOOL CALLBACK destroy_if_shown(HWND window, LPARAM)
{
    if (IsWindowVisible(window)) DestroyWindow(window);
    return TRUE;
}

void forget_windows()
{
    EnumThreadWindows(GetCurrentThreadId(), destroy_if_shown, 0);
    answer_messages();                                              // the one that would end a program among them
    UnregisterClassW(kMainWindowClass, GetModuleHandleW(nullptr));  // the program's, or a test's own of that name
    app_state() = AppState();
    refresh_users_palette();
}

const bool g_starts_afresh = start_afresh_with(forget_windows);

}  // namespace
