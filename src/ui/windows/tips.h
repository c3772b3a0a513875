// Small windows that show the whole text of a label while the mouse rests on it, when the label has no room for it.
#pragma once

#include "ui/windows/painted_static.h"

#include <commctrl.h>

// The tips of `window`, which owns them. Null when Windows refuses: then there are none.
HWND create_tips(HWND window);

// `label` is a child of that window and lets the mouse through to it, as statics do.
void add_tip(HWND tips, HWND label);
void move_tip(HWND tips, HWND label);  // to where the label is now

// The answer to TTN_GETDISPINFOW; `flow` is how that label shows its text.
void answer_tip(NMTTDISPINFOW& question, HWND label, TextFlow flow);
