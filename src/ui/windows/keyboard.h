// What the program's windows owe to those who work with the keyboard: focus that comes back, that can be seen, and
// controls that keys press.
#pragma once

#include <windows.h>

// For the procedure of a top-level window, which calls it with every message: gives the focus back to the control that
// had it when the user returns to the window.
void keep_focus(HWND window, UINT message, WPARAM wparam);

// Takes a message that moves the focus in `window` as the keys of a dialog do, and notes on the way whether the user
// works with the keyboard or with the mouse. False: the message is still to be dispatched.
bool handle_dialog_message(HWND window, MSG& message);

// Whether the controls of `window` show which of them has the focus: from the Tab key to the next press of the mouse.
void set_focus_shown(HWND window, bool is_shown);

// Whether `control` should show that the keys go to it.
bool shows_focus(HWND control);

// Whether WM_GETDLGCODE with this lParam asks about the key `key`. A control that answers DLGC_WANTMESSAGE gets it.
bool asks_about_key(LPARAM lparam, WPARAM key);

// What WM_KEYDOWN with this lParam tells: the key was pressed just now, and is not merely held.
bool is_fresh_key(LPARAM lparam);

// Tells the parent of `control`, as a click would, that it was pressed. The window may be gone afterwards.
void press(HWND control);
bool post_press(HWND control);  // the same a little later; false when Windows refuses
