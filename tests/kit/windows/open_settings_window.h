// The settings window of the running program, opened and worked as the user would.
#pragma once

#include "kit/windows/running_program.h"

class OpenSettingsWindow {
public:
    explicit OpenSettingsWindow(const RunningProgram& program);  // by the gear; returns when the window is there

    HWND window() const { return m_window; }
    HWND control(int id) const { return GetDlgItem(m_window, id); }
    std::wstring text(int id) const { return text_of(control(id)); }
    void type(int id, const wchar_t* text) const { type_into(control(id), text); }
    void press(int id) const { send_to(control(id), BM_CLICK); }
    void close_by_box() const { send_to(m_window, WM_CLOSE); }

    bool is_open() const { return IsWindow(m_window) != FALSE; }
    bool is_masked() const;  // the password shows bullets

private:
    HWND m_window = nullptr;
};

// Null when there is none.
HWND find_settings_window();
