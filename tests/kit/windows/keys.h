// The keyboard and the mouse of the test desktop: what they do goes to the window that has the focus, or that lies
// under the mouse.
#pragma once

#include "kit/windows/running_program.h"

// A key struck once, while `held` (0: none) is down.
void strike(WORD key, WORD held = 0);

// The left mouse button, at a point of the screen.
void click_at(int x, int y);
void click(HWND control);  // in its middle
void put_mouse_away();     // into the corner of the screen, where it is over no control

bool has_focus(const RunningProgram& program, HWND control);  // sooner or later

// Strikes Tab until the control has the focus.
void tab_to(const RunningProgram& program, HWND control);
