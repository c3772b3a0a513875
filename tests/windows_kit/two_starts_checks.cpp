// Two starts at the same moment, as by two impatient double clicks.
#include "app/windows/main_window.h"
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace {

constexpr DWORD kPatience = 30'000;  // milliseconds; what takes longer has failed
constexpr int kRounds = 50;

// A start that waits at its first instruction until it is let go.
class HeldStart {
public:
    HeldStart()
    {
        std::wstring command = L"\"" + program_folder() + L"\\Brasslet.exe\"";
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        EXPECT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, nullptr,
                                   &startup, &m_started));
    }
    HeldStart(const HeldStart&) = delete;
    HeldStart& operator=(const HeldStart&) = delete;
    ~HeldStart()
    {
        TerminateProcess(m_started.hProcess, 1);
        WaitForSingleObject(m_started.hProcess, kPatience);
        CloseHandle(m_started.hThread);
        CloseHandle(m_started.hProcess);
    }

    HANDLE process() const { return m_started.hProcess; }
    DWORD id() const { return m_started.dwProcessId; }
    void let_go() const { ResumeThread(m_started.hThread); }
    bool ends() const { return WaitForSingleObject(process(), kPatience) == WAIT_OBJECT_0; }
    bool is_running() const { return WaitForSingleObject(process(), 0) == WAIT_TIMEOUT; }
    DWORD exit_code() const
    {
        DWORD code = STILL_ACTIVE;
        GetExitCodeProcess(process(), &code);
        return code;
    }

private:
    PROCESS_INFORMATION m_started{};
};

BOOL CALLBACK list_visible(HWND window, LPARAM list)
{
    if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

// All windows of both that are seen, boxes with an error too.
std::vector<HWND> windows_of(const std::array<HeldStart, 2>& starts)
{
    std::vector<HWND> windows;
    EnumWindows(list_visible, reinterpret_cast<LPARAM>(&windows));
    std::erase_if(windows, [&](HWND window) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        return process != starts[0].id() && process != starts[1].id();
    });
    return windows;
}

void start_two()
{
    const std::array<HeldStart, 2> starts;
    for (const HeldStart& start : starts)
        start.let_go();
    const HANDLE processes[] = {starts[0].process(), starts[1].process()};
    const DWORD first_to_end = WaitForMultipleObjects(2, processes, FALSE, kPatience);
    ASSERT_LT(first_to_end, 2U) << "both run";
    const HeldStart& loser = starts[first_to_end];
    const HeldStart& winner = starts[1 - first_to_end];
    EXPECT_EQ(loser.exit_code(), 0U);
    ASSERT_TRUE(winner.is_running()) << "neither runs";
    ASSERT_TRUE(becomes_true([&] { return !windows_of(starts).empty(); }));
    const std::vector<HWND> windows = windows_of(starts);
    ASSERT_EQ(windows.size(), 1U);
    wchar_t class_name[64] = {};
    GetClassNameW(windows[0], class_name, static_cast<int>(std::size(class_name)));
    EXPECT_STREQ(class_name, kMainWindowClass);
    PostMessageW(windows[0], WM_CLOSE, 0, 0);
    EXPECT_TRUE(winner.ends());
    EXPECT_EQ(winner.exit_code(), 0U);
}

}  // namespace

TEST(TwoStarts, AtOnceAreOneWindowFiftyTimes)
{
    const TestFolder folder;
    for (int round = 0; round < kRounds && !testing::Test::HasFailure(); ++round) {
        SCOPED_TRACE(round);
        start_two();
    }
}
