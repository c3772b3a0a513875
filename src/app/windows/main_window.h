// The main window: its class, its creation, and its message handlers.
#pragma once

#include "app/card_texts.h"

#include <windows.h>

#include <functional>

// Other programs, and a second start of this one, find the window by its class.
inline constexpr wchar_t kMainWindowClass[] = L"CorvaneBrassletShell";

LRESULT CALLBACK main_window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

void register_main_window_class(HINSTANCE instance);

// In its first size, not shown yet. app_state().dpi is that of the monitor on which it was expected, and from then on
// that of the monitor on which it stands. What the cards say is asked for when all controls are there, and the settings
// are not looked at before. Null when Windows refuses.
HWND create_main_window(HINSTANCE instance, const std::function<CardTexts()>& first_texts = card_texts);
