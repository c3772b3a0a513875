// The program's main window, made in the test's own process: what no other process can ask a window for, its fonts
// first of all, is seen here.
#pragma once

#include "app/windows/app_state.h"
#include "kit/test_folder.h"

#include <functional>
#include <string>

// Answers the messages that wait for this thread.
void answer_messages();

// Answers messages until `condition` holds; false when it still does not after half a minute.
bool comes_true(const std::function<bool()>& condition);

class OwnWindow {
public:
    // Shown and painted, with a state of its own, at the 96 DPI of the test's monitor; expected on one of another DPI.
    explicit OwnWindow(unsigned expected_dpi = kDefaultDpi);
    OwnWindow(const OwnWindow&) = delete;
    OwnWindow& operator=(const OwnWindow&) = delete;
    ~OwnWindow();

    HWND window() const { return m_window; }
    HWND control(int id) const { return GetDlgItem(m_window, id); }
    std::wstring text(int id) const;
    Rect place(int id) const;  // in the window's client area
    RECT rectangle() const;    // on the screen
    Size client() const;

    // What the system sends to a window that comes to a monitor of `dpi`.
    void change_dpi(unsigned dpi, RECT suggested) const;
    void destroy();  // and takes the message that would have ended the program

private:
    HWND m_window = nullptr;
};
