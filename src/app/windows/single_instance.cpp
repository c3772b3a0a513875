#include "app/windows/single_instance.h"

#include "app/windows/main_window.h"

StartTurn::StartTurn(DWORD patience) : m_mutex(CreateMutexW(nullptr, FALSE, kStartMutex))
{
    if (!m_mutex) return;
    const DWORD result = WaitForSingleObject(m_mutex.get(), patience);
    // The turn of a start that died in the middle passes on as well.
    m_is_held = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

StartTurn::~StartTurn()
{
    if (m_is_held) ReleaseMutex(m_mutex.get());
}

bool bring_running_copy_forward()
{
    const HWND running = FindWindowW(kMainWindowClass, nullptr);
    if (running == nullptr) return false;
    if (IsIconic(running)) ShowWindow(running, SW_RESTORE);
    // A question that waits before the window has the keys: it, and not the window that it disables.
    SetForegroundWindow(GetLastActivePopup(running));
    return true;
}
