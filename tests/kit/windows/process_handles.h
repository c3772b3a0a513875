// What this process holds of the system's drawing and window objects.
#pragma once

#include <windows.h>

struct ObjectCounts {
    int drawing = 0;  // fonts, brushes, pens, bitmaps, regions, device contexts
    int windows = 0;

    bool operator==(const ObjectCounts&) const = default;
};

ObjectCounts held_objects();

// Those of any process: as Windows counts them, or by the table of a system that counts none.
int drawing_objects(HANDLE process);

// The place in the desktop's table of window objects (windows, menus, cursors, hooks, ...) that the next one gets.
// Freed places are given out again first, so that it moves up only by as much as all programs hold more than ever
// before.
int next_window_object();
