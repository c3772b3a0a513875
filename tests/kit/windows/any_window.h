// Hands and eyes for the windows of this and of other processes: messages, and the keyboard and the mouse of the test
// desktop, which go to the window that has the focus, or that lies under the mouse.
#pragma once

#include "ui/geometry.h"

#include <windows.h>

#include <functional>
#include <string>

// Asks again until `condition` holds; false when it still does not after half a minute.
bool becomes_true(const std::function<bool()>& condition);

// Sends the message and returns the answer; the test fails when none comes.
LRESULT send_to(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0);

std::wstring text_of(HWND window);
bool shows_text(HWND window, const std::wstring& text);  // sooner or later
Rect place_of(HWND control);                             // in the client area of its parent
Size client_size_of(HWND window);
COLORREF pixel_of(HWND window, int x, int y);  // as it stands on the screen, in client coordinates

void type_into(HWND field, const wchar_t* text);  // in place of what it holds

// A window with controls that have ids.
class DrivenWindow {
public:
    explicit DrivenWindow(HWND window = nullptr) : m_window(window) {}

    HWND window() const { return m_window; }
    HWND control(int id) const { return GetDlgItem(m_window, id); }
    std::wstring text(int id) const { return text_of(control(id)); }
    Rect place(int id) const { return place_of(control(id)); }  // in the window's client area
    Size client() const { return client_size_of(m_window); }
    void press(int id) const { send_to(control(id), BM_CLICK); }  // a button, with the mouse

protected:
    HWND m_window;
};

// A key struck once, while `held` (0: none) is down.
void strike(WORD key, WORD held = 0);

// The left mouse button, at a point of the screen.
void click_at(int x, int y);
void click(HWND control);  // in its middle
void put_mouse_away();     // into the corner of the screen, where it is over no control
