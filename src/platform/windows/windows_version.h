// Which Windows this is, and what it has. The oldest that the program is meant for is Windows 10, version 1703, the
// first with every function that it calls (SetProcessDpiAwarenessContext is the youngest).
#pragma once

#include <windows.h>

struct WindowsVersion {
    unsigned long major = 0;  // 10 for Windows 10 and 11
    unsigned long minor = 0;
    unsigned long build = 0;  // 15063 is version 1703
};

bool is_new_enough(const WindowsVersion& version);

// Of the running system, whatever the compatibility settings of the program say. A system that does not tell counts as
// version 0.
WindowsVersion windows_version();

// Says in a box that Windows is too old when it is, and returns false then.
bool is_on_a_windows_new_enough();

// A function that an older Windows lacks, looked up in a library of Windows that is always loaded. Null when this
// Windows has no such function.
template <typename Function>
Function system_function(const wchar_t* library, const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(library), name)));
}
