// Hands and eyes for the windows of other processes.
#pragma once

#include "ui/geometry.h"

#include <windows.h>

#include <functional>
#include <string>

// Asks again until `condition` holds; false when it still does not after half a minute.
bool becomes_true(const std::function<bool()>& condition);

// Sends the message and returns the answer; the test fails when none comes.
LRESULT send_to(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0);

std::wstring text_of(HWND window);
bool shows_text(HWND window, const std::wstring& text);  // sooner or later
Rect place_of(HWND control);                             // in the client area of its parent
Size client_size_of(HWND window);
COLORREF pixel_of(HWND window, int x, int y);  // as it stands on the screen, in client coordinates

void type_into(HWND field, const wchar_t* text);  // in place of what it holds
