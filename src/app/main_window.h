// The main window.
#pragma once

#include <windows.h>

// Other programs, and a second start of this one, find the window by its class.
inline constexpr wchar_t kMainWindowClass[] = L"CorvaneBrassletShell";

void register_main_window_class(HINSTANCE instance);

// In the size that app_state().dpi asks for, not shown yet. Null when Windows refuses.
HWND create_main_window(HINSTANCE instance);
