// The one gradient that runs behind everything, as the window paints it and as its children continue it.
#pragma once

#include "ui/windows/gdi.h"

void paint_gradient(HDC dc, const RECT& area, const Gradient& gradient);

// All of a window's client area, in the user's colours.
void paint_background(HDC dc, const RECT& client);

// The background behind a child control, in the coordinates of its parent's client area.
struct BackgroundBehind {
    Gradient whole;  // from the control's top to its bottom
    Colour middle;   // at its vertical centre
};

// A control without a parent, or whose parent is less than two pixels high, stands before the bottom colour.
BackgroundBehind background_behind(HWND control);
