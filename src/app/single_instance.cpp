#include "app/single_instance.h"

#include "app/main_window.h"

bool bring_running_copy_forward()
{
    const HWND running = FindWindowW(kMainWindowClass, nullptr);
    if (running == nullptr) return false;
    if (IsIconic(running)) ShowWindow(running, SW_RESTORE);
    SetForegroundWindow(running);
    return true;
}
