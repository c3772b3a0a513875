// What another process holds of the system's objects.
#pragma once

#include <windows.h>

struct UsedObjects {
    int handles = 0;  // of the kernel's objects
    int drawing = 0;  // fonts, brushes, pens, bitmaps, regions, device contexts
    int windows = 0;  // windows, menus, cursors, icons, hooks
};

// Counted by Windows itself, or, by a system that counts none for another process, in its tables. There the window
// objects are those of the whole desktop, and the number says where the next one comes to lie.
UsedObjects used_objects(HANDLE process);
