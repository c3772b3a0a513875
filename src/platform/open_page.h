// Web pages, shown in the user's own browser.
#pragma once

#include <string>

// Windows' own type of a window handle (HWND), for those who only hand one on.
struct HWND__;  // NOLINT(bugprone-reserved-identifier): the name is Windows'
using WindowHandle = HWND__*;

// Has the browser open `address`, UTF-8; `owner` is the window that owns whatever Windows itself has to say about it.
// Nothing but https is opened: the shell takes other texts for programs and files, and would run them. Nor is an
// address with a quotation mark, a blank or a control character, of which the browser's command line could make several
// words. False when nothing was opened. For the user-interface thread.
bool open_page(const std::string& address, WindowHandle owner = nullptr);
