// What the program's static controls do beyond Windows' own: paint themselves, be pressed as a hyperlink or a button
// is, and show in a tooltip what they have no room for.
#pragma once

#include "ui/windows/screen_reader.h"

#include <windows.h>

#include <commctrl.h>

enum class TextFlow { one_line, wrapped };  // one line: vertically centred; wrapped: at word breaks, from the top

// Makes the static `label` paint its text itself, in the colour and on the brush of its parent's answer to
// WM_CTLCOLORSTATIC; on the window's gradient where that is the hollow brush.
void make_self_painting(HWND label, TextFlow flow);

// From now on a self-painting label can be pressed: its parent hears of clicks on it (SS_NOTIFY), the Tab key reaches
// it, Enter and Space press it, and screen readers hear that it is of `kind`, which lives as long as the process. Null:
// it is a label as others are.
void set_pressable(HWND label, const AccessibleKind* kind);

// The tooltip control of `window`, which owns it. Null when Windows refuses: then there are no tooltips.
HWND create_tips(HWND window);

// `label` is a child of that window.
void add_tip(HWND tips, HWND label);
void move_tip(HWND tips, HWND label);  // to where the label is now

// The label that TTN_GETDISPINFOW asks about.
HWND label_of_tip(const NMTTDISPINFOW& question);

// The answer to TTN_GETDISPINFOW: the whole text of `label`, or nothing when the label has room for it. `flow` is how
// that label shows its text.
void answer_tip(NMTTDISPINFOW& question, HWND label, TextFlow flow);
