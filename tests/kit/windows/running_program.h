// The real program, started beside a test and driven through its real window.
#pragma once

#include "kit/windows/any_window.h"

#include <string>

// Starts the program with this process's environment; its exit code.
DWORD run_to_its_end();

// The folder that the build left the program in.
std::wstring program_folder();

// The folder of the test programs and of what they start: that of this program, or, where check.exe stands alone for a
// person to find, files\tests beside it.
std::wstring test_files_folder();

class RunningProgram : public DrivenWindow {
public:
    // Started from the build's folder, or from another that holds a copy of it, and asked to be shown as `show` says.
    // Returns when the window is there and waits for input.
    explicit RunningProgram(const std::wstring& folder = program_folder(), WORD show = SW_SHOWNORMAL);
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram();  // ended with force when it still runs

    void type(const wchar_t* name) const;  // into the name field, in place of what it holds
    bool shows(int id, const std::wstring& text) const { return shows_text(control(id), text); }  // sooner or later
    bool answers() const;                // its thread is in the message loop
    HWND focus() const;                  // the window that the keys go to
    bool has_focus(HWND control) const;  // sooner or later
    void tab_to(HWND control) const;     // strikes Tab until the control has the focus
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
};

// Its settings window, opened and worked as the user would.
class OpenSettingsWindow : public DrivenWindow {
public:
    explicit OpenSettingsWindow(const RunningProgram& program);  // by the gear; returns when the window is there

    void type(int id, const wchar_t* text) const { type_into(control(id), text); }
    void close_by_box() const { send_to(m_window, WM_CLOSE); }

    bool is_open() const { return IsWindow(m_window) != FALSE; }
    bool is_masked() const;  // the password shows bullets
};

// Null when there is none.
HWND find_settings_window();
