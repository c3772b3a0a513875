// A label that opens something.
#pragma once

#include <windows.h>

// Lets the Tab key reach a self-painting label whose parent hears of clicks on it, and lets Enter and Space press it.
void make_link(HWND label);
