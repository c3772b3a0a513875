// What the main window paints: the gradient, the title and the two cards; its buttons; and the colours of its other
// controls.
#pragma once

#include <windows.h>

// Makes the colours those of the user's Windows settings, as they are now. repaint_in_new_colours shows them too.
void refresh_colours(HWND window);
void repaint_in_new_colours(HWND window);

// The answers to WM_PAINT and WM_DRAWITEM.
void paint_main_window(HWND window);
void draw_button(const DRAWITEMSTRUCT& item);

// The answers to WM_CTLCOLORSTATIC and WM_CTLCOLOREDIT.
HBRUSH colour_static(HDC dc, HWND control);
HBRUSH colour_field(HDC dc);
