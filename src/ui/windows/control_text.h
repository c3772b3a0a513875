// The text that the user typed into a control.
#pragma once

#include <windows.h>

#include <string>

// As UTF-8, without white space at both ends; empty when there is no such control.
std::string control_text(HWND control);
