// The program's icon where Windows shows it for the main window: in the title bar and on the taskbar, in the sizes of
// the window's DPI. Windows would stretch the sizes that the window class has.
#pragma once

#include "text/freed_by.h"

#include <windows.h>

#include <memory>
#include <type_traits>

using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, FreedBy<DestroyIcon>>;

inline constexpr int kIconResource = 1;

// A copy of the icon of `module` of `size` x `size` pixels; null when there is none.
Icon load_icon(HINSTANCE module, int size);

// Those that a window shows. They have to live as long as it shows them.
struct WindowIcons {
    Icon large_icon;  // taskbar, Alt+Tab
    Icon small_icon;  // title bar
};

// Has `window` show the icons of its module for `dpi`, and puts them in the place of `shown`, which it showed before.
void show_icons(HWND window, unsigned dpi, WindowIcons& shown);
