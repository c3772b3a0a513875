// The real program, started beside a test and driven through its real window.
#pragma once

#include "kit/windows/any_window.h"

#include <string>

// Starts the program with this process's environment; its exit code.
DWORD run_to_its_end();

// The folder that the build left the program in.
std::wstring program_folder();

class RunningProgram {
public:
    // Started from the build's folder, or from another that holds a copy of it, and asked to be shown as `show` says.
    // Returns when the window is there and waits for input.
    explicit RunningProgram(const std::wstring& folder = program_folder(), WORD show = SW_SHOWNORMAL);
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram();  // ended with force when it still runs

    HWND window() const { return m_window; }
    HWND control(int id) const { return GetDlgItem(m_window, id); }
    std::wstring text(int id) const;
    Rect place(int id) const;  // in the window's client area
    Size client() const;

    void type(const wchar_t* name) const;                // into the name field, in place of what it holds
    void press(int id) const;                            // a button, with the mouse
    bool shows(int id, const std::wstring& text) const;  // sooner or later
    bool answers() const;                                // its thread is in the message loop
    HWND focus() const;                                  // the window that the keys go to
    std::wstring cue_of(HWND field) const;
    HANDLE process() const { return m_process; }

    // Tells the window, as the system does, that it is on a monitor of `dpi` now and what its rectangle should be.
    void change_dpi(unsigned dpi, const RECT& suggested) const;

    std::wstring current_folder() const;  // of its process
    bool is_running() const { return WaitForSingleObject(m_process, 0) == WAIT_TIMEOUT; }
    DWORD close() const;  // by the caption's close box; the exit code
    DWORD exit_code() const;

private:
    HANDLE m_process = nullptr;
    HWND m_window = nullptr;
};
