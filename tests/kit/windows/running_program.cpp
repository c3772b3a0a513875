#include "kit/windows/running_program.h"

#include "app/windows/controls.h"
#include "app/windows/main_window.h"
#include "platform/environment.h"
#include "platform/text_conversion.h"
#include "settings/windows/settings_window_controls.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <winternl.h>

namespace {

constexpr DWORD kPatience = 30'000;  // milliseconds; what takes longer has failed

HANDLE start_program(const std::wstring& folder, WORD show)
{
    std::wstring command = L"\"" + folder + L"\\Brasslet.exe\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = show;
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

// What stands at an address of another process.
template <typename Value>
Value read_from(HANDLE process, const void* address)
{
    Value value{};
    EXPECT_TRUE(ReadProcessMemory(process, address, &value, sizeof value, nullptr));
    return value;
}

}  // namespace

std::wstring program_folder()
{
    // The test program stands in build/tests, the program in build/src.
    return test_files_folder() + L"\\..\\src";
}

std::wstring test_files_folder()
{
    const std::wstring beside = widen(executable_folder());
    const std::wstring apart = beside + L"\\files\\tests";
    return GetFileAttributesW(apart.c_str()) == INVALID_FILE_ATTRIBUTES ? beside : apart;
}

DWORD run_to_its_end()
{
    HANDLE process = start_program(program_folder(), SW_SHOWNORMAL);
    const DWORD code = exit_code_of(process);
    TerminateProcess(process, 1);  // when it did not end, so that the tests after this one have the desktop alone
    CloseHandle(process);
    return code;
}

RunningProgram::RunningProgram(const std::wstring& folder, WORD show) : m_process(start_program(folder, show))
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

void RunningProgram::type(const wchar_t* name) const
{
    type_into(control(kNameField), name);
}

bool RunningProgram::answers() const
{
    DWORD_PTR answer = 0;
    return SendMessageTimeoutW(m_window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, kPatience, &answer) != 0;
}

HWND RunningProgram::focus() const
{
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(GetWindowThreadProcessId(m_window, nullptr), &thread);
    return thread.hwndFocus;
}

bool RunningProgram::has_focus(HWND control) const
{
    return becomes_true([&] { return focus() == control; });
}

void RunningProgram::tab_to(HWND control) const
{
    constexpr int kMoreThanControls = 20;
    for (int i = 0; focus() != control && i < kMoreThanControls; ++i) {
        const HWND before = focus();
        strike(VK_TAB);
        ASSERT_TRUE(becomes_true([&] { return focus() != before; }));
    }
    ASSERT_EQ(focus(), control);
}

std::wstring RunningProgram::cue_of(HWND field) const
{
    // The answer is written to an address of the program's own memory.
    wchar_t cue[64] = {};
    void* theirs = VirtualAllocEx(m_process, nullptr, sizeof cue, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    send_to(field, EM_GETCUEBANNER, reinterpret_cast<WPARAM>(theirs), std::size(cue));
    ReadProcessMemory(m_process, theirs, cue, sizeof cue, nullptr);
    VirtualFreeEx(m_process, theirs, 0, MEM_RELEASE);
    return cue;
}

void RunningProgram::change_dpi(unsigned dpi, const RECT& suggested) const
{
    // The message carries an address, which must mean something in the program's own memory.
    void* theirs = VirtualAllocEx(m_process, nullptr, sizeof suggested, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    ASSERT_NE(theirs, nullptr);
    ASSERT_TRUE(WriteProcessMemory(m_process, theirs, &suggested, sizeof suggested, nullptr));
    send_to(m_window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(theirs));
    VirtualFreeEx(m_process, theirs, 0, MEM_RELEASE);
}

std::wstring RunningProgram::current_folder() const
{
    // Of the parameters only the later half is declared: the current folder stands two strings and a handle earlier.
    constexpr std::ptrdiff_t kFolderBeforeImagePath = -(2 * static_cast<std::ptrdiff_t>(sizeof(UNICODE_STRING)) + 8);
    PROCESS_BASIC_INFORMATION basics{};
    ULONG size = 0;
    NtQueryInformationProcess(m_process, ProcessBasicInformation, &basics, sizeof basics, &size);
    const auto environment = read_from<PEB>(m_process, basics.PebBaseAddress);
    const auto* image_path = reinterpret_cast<const char*>(&environment.ProcessParameters->ImagePathName);
    const auto folder = read_from<UNICODE_STRING>(m_process, image_path + kFolderBeforeImagePath);
    std::wstring text(folder.Length / sizeof(wchar_t), L'\0');
    EXPECT_TRUE(ReadProcessMemory(m_process, folder.Buffer, text.data(), folder.Length, nullptr));
    return text;
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

OpenSettingsWindow::OpenSettingsWindow(const RunningProgram& program)
{
    program.press(kSettingsButton);
    m_window = find_settings_window();
    if (m_window == nullptr || !IsWindowVisible(m_window)) ADD_FAILURE() << "the gear opens no window";
}

bool OpenSettingsWindow::is_masked() const
{
    constexpr LRESULT kBullet = 0x2022;
    const LRESULT mask = send_to(control(kPasswordField), EM_GETPASSWORDCHAR);
    EXPECT_TRUE(mask == kBullet || mask == 0) << mask;
    return mask == kBullet;
}

HWND find_settings_window()
{
    return FindWindowW(L"CorvaneBrassletSettings", nullptr);
}
