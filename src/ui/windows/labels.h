// What the program's static controls do beyond Windows' own: paint themselves over the window's gradient, be pressed as
// a hyperlink, and show in a tooltip what they have no room for.
#pragma once

#include <windows.h>

#include <commctrl.h>

enum class TextFlow { one_line, wrapped };  // one line: vertically centred; wrapped: at word breaks, from the top

// Makes the static `label` paint its text itself over the window's gradient, in the colour that its parent's answer to
// WM_CTLCOLORSTATIC sets.
void make_self_painting(HWND label, TextFlow flow);

// Makes a self-painting label whose parent hears of clicks on it (SS_NOTIFY) a hyperlink: the Tab key reaches it, Enter
// and Space press it.
void make_link(HWND label);

// The tooltip control of `window`, which owns it. Null when Windows refuses: then there are no tooltips.
HWND create_tips(HWND window);

// `label` is a child of that window and lets the mouse through to it, as statics do.
void add_tip(HWND tips, HWND label);
void move_tip(HWND tips, HWND label);  // to where the label is now

// The answer to TTN_GETDISPINFOW: the whole text of `label`, or nothing when the label has room for it. `flow` is how
// that label shows its text.
void answer_tip(NMTTDISPINFOW& question, HWND label, TextFlow flow);
