// The main window: its class, its creation, and its message handlers.
#pragma once

#include <windows.h>

// Other programs, and a second start of this one, find the window by its class.
inline constexpr wchar_t kMainWindowClass[] = L"CorvaneBrassletShell";

LRESULT CALLBACK main_window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

void register_main_window_class(HINSTANCE instance);

// In its first size, not shown yet. app_state().dpi is that of the monitor on which it was expected, and from then on
// that of the monitor on which it stands. Null when Windows refuses.
HWND create_main_window(HINSTANCE instance);
