// What the main window does about what happens to it.
#pragma once

#include <windows.h>

LRESULT CALLBACK main_window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
