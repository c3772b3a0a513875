// What the main window paints itself: the gradient, the title and the two cards; and the colours of its controls.
#pragma once

#include <windows.h>

void paint_main_window(HWND window);

// The answers to WM_CTLCOLORSTATIC and WM_CTLCOLOREDIT.
HBRUSH colour_static(HDC dc, HWND control);
HBRUSH colour_field(HDC dc);
