// The frame that Windows draws around the program's windows.
#pragma once

#include <windows.h>

// Gives the frame the colours of the user's palette, where this Windows can.
void apply_frame_colours(HWND window);
