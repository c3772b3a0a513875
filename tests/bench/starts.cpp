// Times the start of two programs in turn: bench_starts PAIRS FLOOR-EXE FLOOR-CLASS OWN-EXE OWN-CLASS. For both alike:
// from the creation of the process until its window is there, takes messages and is wholly painted.
#include "bench/pairs.h"
#include "bench/require.h"

#include <windows.h>
#include <shellapi.h>

#include <exception>
#include <string>

namespace {

constexpr DWORD kPatience = 30'000;  // milliseconds

struct Program {
    std::wstring path;
    std::wstring window_class;
};

class RunningProgram {
public:
    explicit RunningProgram(const Program& program) : m_class(program.window_class)
    {
        STARTUPINFOW start{};
        start.cb = sizeof start;
        std::wstring line = L"\"" + program.path + L"\"";
        require(CreateProcessW(program.path.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                               &m_process) != 0,
                "the program does not start");
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram()
    {
        TerminateProcess(m_process.hProcess, 1);  // of no effect when it has ended
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }

    // Until the window is there, takes messages, and has nothing left to paint, the windows inside it included.
    void wait_until_painted()
    {
        const ULONGLONG end = GetTickCount64() + kPatience;
        while (IsWindowVisible(window()) == 0) {
            require(GetTickCount64() < end, "the window is not shown");
            Sleep(1);
        }
        SendMessageW(window(), WM_NULL, 0, 0);
        RedrawWindow(window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
    void close()
    {
        PostMessageW(window(), WM_CLOSE, 0, 0);
        require(WaitForSingleObject(m_process.hProcess, kPatience) == WAIT_OBJECT_0, "the program does not end");
    }

private:
    HWND window() const { return FindWindowW(m_class.c_str(), nullptr); }

    PROCESS_INFORMATION m_process{};
    std::wstring m_class;
};

double start_time_of(const Program& program)
{
    const auto start = std::chrono::steady_clock::now();
    RunningProgram running(program);
    running.wait_until_painted();
    const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
    running.close();
    return time.count();
}

void time_starts(int pairs, const Program& floor, const Program& own)
{
    for (int run = -1; run < pairs; ++run) {
        const double floor_time = start_time_of(floor);
        const double own_time = start_time_of(own);
        if (run >= 0) print_pair("start", floor_time, own_time);
    }
}

}  // namespace

int main()
{
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count != 6) return 2;
    try {
        time_starts(std::stoi(words[1]), {words[2], words[3]}, {words[4], words[5]});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_starts: %s\n", error.what());
        return 1;
    }
    return 0;
}
