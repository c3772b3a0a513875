// One copy of the program per desktop.
#pragma once

#include "platform/windows/unique_handle.h"

// Of the session, not of the whole machine: every user who is logged on has a desktop of their own.
inline constexpr wchar_t kStartMutex[] = L"Local\\CorvaneBrassletStart";

// Starts take turns from the search for a running copy until the window is there, so that two at the same moment end
// in one window. Held from construction to destruction, by the thread that constructed it.
class StartTurn {
public:
    static constexpr DWORD kPatience = 10'000;  // milliseconds; a start takes a fraction of a second

    // Waits for the start that goes first, at most `patience` milliseconds: the mutex can be held by any program of the
    // session, for ever, and the user wants the window all the same. is_held() is false then.
    explicit StartTurn(DWORD patience = kPatience);
    StartTurn(const StartTurn&) = delete;
    StartTurn& operator=(const StartTurn&) = delete;
    ~StartTurn();

    bool is_held() const { return m_is_held; }

private:
    UniqueHandle m_mutex;
    bool m_is_held = false;
};

// Brings the copy that already runs to the front, restored when it was minimised, and of its windows the one that the
// user worked in last; false when there is no copy.
bool bring_running_copy_forward();
