// How the program's windows look before anything stands in them: the palette that the user's Windows settings ask for,
// the frame in its colours, and the gradient behind everything, as a window paints it and as its children continue it.
// All of it belongs to the user-interface thread.
#pragma once

#include "ui/palette.h"
#include "ui/windows/gdi.h"

// The user's palette as last read; read for the first time when it is first asked for.
const Palette& users_palette();

void refresh_users_palette();

// Whether a window that gets this message should read the palette again, and paint itself anew.
bool tells_of_new_colours(UINT message);

// Gives the frame that Windows draws around `window` the colours of the user's palette, where this Windows can.
void apply_frame_colours(HWND window);

void paint_gradient(HDC dc, const RECT& area, const Gradient& gradient);

// All of a window's client area, in the colours of the user's palette.
void paint_background(HDC dc, const RECT& client);

// The background behind a child control, in the coordinates of its parent's client area.
struct BackgroundBehind {
    Gradient whole;  // from the control's top to its bottom
    Colour middle;   // at its vertical centre
};

// A control without a parent, or whose parent is less than two pixels high, stands before the bottom colour.
BackgroundBehind background_behind(HWND control);
