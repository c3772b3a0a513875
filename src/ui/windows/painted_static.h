// A static that paints its text itself over the window's gradient, in the colour that its parent's answer to
// WM_CTLCOLORSTATIC sets.
#pragma once

#include "ui/windows/gdi.h"

enum class TextFlow { one_line, wrapped };  // one line: vertically centred; wrapped: at word breaks, from the top

void make_self_painting(HWND label, TextFlow flow);
