// Windows' own file manager.
#pragma once

#include "platform/open_page.h"

#include <string>

// Opens the folder that `path` lies in with the file selected. `owner`: the window that shell errors belong to; may be
// null. Nothing is said when it fails. On a thread that has entered a COM apartment.
void show_in_explorer(const std::string& path, WindowHandle owner);
