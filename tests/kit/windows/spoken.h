// What a screen reader gets to hear of a window of any process, through IAccessible.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <functional>
#include <string>
#include <vector>

struct Spoken {
    std::wstring name;
    LONG role = 0;   // ROLE_SYSTEM_...
    LONG state = 0;  // STATE_SYSTEM_...
    std::wstring value;
    std::wstring action;

    bool is(LONG state_flag) const { return (state & state_flag) != 0; }
};

// The object of a window, for the life of this.
class Accessible {
public:
    explicit Accessible(HWND window);
    Accessible(const Accessible&) = delete;
    Accessible& operator=(const Accessible&) = delete;
    ~Accessible();

    IAccessible* get() const { return m_object; }
    Spoken spoken() const;
    HRESULT press() const;  // its default action

private:
    IAccessible* m_object = nullptr;
};

Spoken spoken(HWND window);

// Prints the window and its controls, one a line, as the reader hears them one after the other.
void print_tree(HWND window);

// The events of the programs of this desktop, from `first` to `last`, for the life of this. Calls `heard` from a
// message loop of this thread.
class HeardEvents {
public:
    using Heard = std::function<void(DWORD event, HWND window)>;

    HeardEvents(DWORD first, DWORD last, Heard heard);
    HeardEvents(const HeardEvents&) = delete;
    HeardEvents& operator=(const HeardEvents&) = delete;
    ~HeardEvents();

private:
    HWINEVENTHOOK m_hook = nullptr;
};
