#include "windows/running_program.h"

#include "app/main_window.h"
#include "platform/environment.h"
#include "platform/text_conversion.h"

#include <gtest/gtest.h>

namespace {

constexpr DWORD kPatience = 10'000;  // milliseconds; what takes longer has failed

HANDLE start_program(const std::wstring& folder)
{
    std::wstring command = L"\"" + folder + L"\\Brasslet.exe\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started)) {
        ADD_FAILURE() << "Brasslet.exe does not start: error " << GetLastError();
        return nullptr;
    }
    CloseHandle(started.hThread);
    return started.hProcess;
}

DWORD exit_code_of(HANDLE process)
{
    DWORD code = STILL_ACTIVE;
    if (WaitForSingleObject(process, kPatience) != WAIT_OBJECT_0) ADD_FAILURE() << "Brasslet.exe does not end";
    GetExitCodeProcess(process, &code);
    return code;
}

LRESULT send(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutW(window, message, wparam, lparam, SMTO_ABORTIFHUNG, kPatience, &answer))
        ADD_FAILURE() << "no answer to message " << message;
    return static_cast<LRESULT>(answer);
}

}  // namespace

bool becomes_true(const std::function<bool()>& condition)
{
    const ULONGLONG end = GetTickCount64() + kPatience;
    while (!condition()) {
        if (GetTickCount64() > end) return false;
        Sleep(5);
    }
    return true;
}

std::wstring program_folder()
{
    // The test program stands in build/tests, the program in build/src.
    return widen(executable_folder()) + L"\\..\\src";
}

DWORD run_to_its_end()
{
    HANDLE process = start_program(program_folder());
    const DWORD code = exit_code_of(process);
    CloseHandle(process);
    return code;
}

RunningProgram::RunningProgram(const std::wstring& folder) : m_process(start_program(folder))
{
    const bool is_there = becomes_true([this] {
        m_window = FindWindowW(kMainWindowClass, nullptr);
        return m_window != nullptr && IsWindowVisible(m_window);
    });
    if (!is_there) ADD_FAILURE() << "Brasslet.exe shows no window";
    WaitForInputIdle(m_process, kPatience);
}

RunningProgram::~RunningProgram()
{
    if (is_running()) {
        TerminateProcess(m_process, 1);
        WaitForSingleObject(m_process, kPatience);
    }
    CloseHandle(m_process);
}

std::wstring RunningProgram::text(int id) const
{
    wchar_t text[1024] = {};
    send(control(id), WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
    return text;
}

Rect RunningProgram::place(int id) const
{
    RECT place{};
    GetWindowRect(control(id), &place);
    MapWindowPoints(HWND_DESKTOP, m_window, reinterpret_cast<POINT*>(&place), 2);
    return {place.left, place.top, place.right - place.left, place.bottom - place.top};
}

Size RunningProgram::client() const
{
    RECT client{};
    GetClientRect(m_window, &client);
    return {client.right, client.bottom};
}

void RunningProgram::type(const wchar_t* name) const
{
    send(control(1004), EM_SETSEL, 0, -1);
    send(control(1004), WM_CLEAR, 0, 0);
    for (const wchar_t* letter = name; *letter != L'\0'; ++letter)
        send(control(1004), WM_CHAR, *letter, 0);
}

void RunningProgram::press(int id) const
{
    send(control(id), BM_CLICK, 0, 0);
}

bool RunningProgram::shows(int id, const std::wstring& expected) const
{
    return becomes_true([&] { return text(id) == expected; });
}

bool RunningProgram::answers() const
{
    DWORD_PTR answer = 0;
    return SendMessageTimeoutW(m_window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, kPatience, &answer) != 0;
}

void RunningProgram::change_dpi(unsigned dpi, const RECT& suggested) const
{
    // The message carries an address, which must mean something in the program's own memory.
    void* theirs = VirtualAllocEx(m_process, nullptr, sizeof suggested, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    ASSERT_NE(theirs, nullptr);
    ASSERT_TRUE(WriteProcessMemory(m_process, theirs, &suggested, sizeof suggested, nullptr));
    send(m_window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(theirs));
    VirtualFreeEx(m_process, theirs, 0, MEM_RELEASE);
}

DWORD RunningProgram::close() const
{
    PostMessageW(m_window, WM_CLOSE, 0, 0);
    return exit_code();
}

DWORD RunningProgram::exit_code() const
{
    return exit_code_of(m_process);
}
