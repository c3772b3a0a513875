#include "windows_kit/guarded_run.h"

#include "app/windows/main_window.h"
#include "kit/windows/vaultry.h"
#include "platform/environment.h"
#include "platform/text_conversion.h"
#include "platform/windows/windows_path.h"
#include "windows_kit/kit_site.h"
#include "windows_kit/options.h"
#include "windows_kit/tester.h"

#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <iostream>

namespace {

constexpr int kRefused = 1;
constexpr char kLocalAppData[] = "\\Local";
constexpr char kTemporary[] = "\\Temp";

// A sentence that says why no check may run now; empty when all may.
std::string refusal()
{
    if (FindWindowW(kMainWindowClass, nullptr) != nullptr)
        return "Brasslet is open. Close it and start check.exe again: the checks shall not meet your own.";
    if (vaultry_window() != nullptr)
        return "Vaultry is open. Close it and start check.exe again: the checks shall not meet your own.";
    return {};
}

std::filesystem::path fresh_folder()
{
    const auto name =
        L"Brasslet-windows-kit-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(GetTickCount64());
    return std::filesystem::temp_directory_path() / name;
}

std::wstring command_line(const Options& options)
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    std::wstring command = L"\"" + path + L"\"";
    for (const std::string& word : words_for_inside(options))
        command += L" \"" + widen(word) + L"\"";
    return command;
}

// Whatever the checks have started ends with this process, however it ends. What takes the authority away does not.
HANDLE make_job()
{
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE | JOB_OBJECT_LIMIT_BREAKAWAY_OK;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

int run_inside(const Options& options)
{
    SetEnvironmentVariableW(L"LOCALAPPDATA", wide_path(options.inside + kLocalAppData).c_str());
    SetEnvironmentVariableW(L"TEMP", wide_path(options.inside + kTemporary).c_str());
    SetEnvironmentVariableW(L"TMP", wide_path(options.inside + kTemporary).c_str());
    std::wstring command = command_line(options);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr, nullptr, &startup,
                        &started)) {
        std::printf("The checks do not start: error %lu.\n", GetLastError());
        return kRefused;
    }
    const HANDLE job = make_job();
    AssignProcessToJobObject(job, started.hProcess);
    ResumeThread(started.hThread);
    CloseHandle(started.hThread);
    WaitForSingleObject(started.hProcess, INFINITE);
    DWORD status = kRefused;
    GetExitCodeProcess(started.hProcess, &status);
    CloseHandle(started.hProcess);
    CloseHandle(job);
    if (status > 1) std::printf("The checks ended in the middle, with status 0x%lX. That is a failure.\n", status);
    return status == 0 ? 0 : 1;
}

// A console that was opened for this process alone, as a double click does, closes with it.
void let_the_tester_read()
{
    DWORD processes[2] = {};
    DWORD mode = 0;
    if (GetConsoleProcessList(processes, 2) != 1 || !GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode)) return;
    std::printf("\nPress Enter to close this window.");
    std::fflush(stdout);
    std::string line;
    std::getline(std::cin, line);
}

int run_unless_refused(Options& options)
{
    if (const std::string why = refusal(); !why.empty()) {
        std::printf("%s\n", why.c_str());
        return kRefused;
    }
    std::error_code error;
    const std::filesystem::path folder = fresh_folder();
    for (const char* part : {kLocalAppData, kTemporary})
        std::filesystem::create_directories(folder.wstring() + widen(part), error);
    if (error) {
        std::printf("The folder for the checks' own files cannot be made: %s\n", narrow(folder.wstring()).c_str());
        return kRefused;
    }
    options.inside = narrow(folder.wstring());
    if (const std::string count = clean_up_authorities(); count != "0")
        std::printf("Authorities that a run which was cut short had left trusted, and that are taken away now: %s\n",
                    count.c_str());
    ask_tester(options);
    std::fflush(stdout);
    const int status = run_inside(options);
    std::filesystem::remove_all(folder, error);
    return status;
}

}  // namespace

int run_guarded(Options options)
{
    const int status = run_unless_refused(options);
    let_the_tester_read();
    return status;
}

bool keeps_to_own_folder(const Options& options)
{
    if (!options.inside.empty() && local_app_data() == options.inside + kLocalAppData) return true;
    std::printf("Nothing was run: Brasslet would not keep its files in the folder of the checks, but in %s.\n",
                local_app_data().c_str());
    return false;
}
