// The oldest Windows that the program is meant for: Windows 10, version 1703, the first with every function that it
// calls (SetProcessDpiAwarenessContext is the youngest).
#pragma once

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
