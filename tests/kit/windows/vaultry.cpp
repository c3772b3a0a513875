#include "kit/windows/vaultry.h"

#include "kit/windows/running_program.h"

#include <gtest/gtest.h>

namespace {

std::wstring stand_in_file()
{
    return test_files_folder() + L"\\world\\vaultry\\vaultry_stand_in.exe";
}

}  // namespace

HWND vaultry_window()
{
    return FindWindowW(L"CorvaneVaultryShell", nullptr);
}

void put_vaultry(const std::wstring& folder)
{
    ASSERT_TRUE(CopyFileW(stand_in_file().c_str(), (folder + L"\\Vaultry.exe").c_str(), FALSE));
}

void set_vaultry_orders(const std::wstring& orders)
{
    SetEnvironmentVariableW(L"VAULTRY_ORDERS", orders.c_str());
}

RunningVaultry::RunningVaultry(const std::wstring& folder, const std::wstring& options)
{
    std::wstring command = L"\"" + stand_in_file() + L"\" notices " + options;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(), &startup,
                        &started)) {
        ADD_FAILURE() << "the stand-in does not start: error " << GetLastError();
        return;
    }
    CloseHandle(started.hThread);
    m_process = started.hProcess;
    const std::wstring count_file = folder + L"\\notices";
    if (!becomes_true([&] { return GetFileAttributesW(count_file.c_str()) != INVALID_FILE_ATTRIBUTES; }))
        ADD_FAILURE() << "the stand-in is not ready";
}

RunningVaultry::~RunningVaultry()
{
    TerminateProcess(m_process, 0);
    WaitForSingleObject(m_process, INFINITE);
    CloseHandle(m_process);
}

void close_vaultry()
{
    if (const HWND window = vaultry_window()) {
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, id);
        PostMessageW(window, WM_CLOSE, 0, 0);
        EXPECT_EQ(WaitForSingleObject(process, 10'000), WAIT_OBJECT_0);
        CloseHandle(process);
    }
}
