#include "platform/windows/crash_reports.h"

#include "kit/windows/replaced_import.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>
#include <vector>

using FindFunction = FARPROC(WINAPI*)(HMODULE, LPCSTR);
extern "C" FindFunction __imp_GetProcAddress;

namespace {

std::vector<DWORD> given_flags;
std::string asked_for;
HMODULE asked_module = nullptr;

HRESULT WINAPI take_flags(DWORD flags)
{
    given_flags.push_back(flags);
    return S_OK;
}

FARPROC WINAPI give_taker(HMODULE module, LPCSTR name)
{
    asked_module = module;
    asked_for = name;
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(take_flags));
}

FARPROC WINAPI give_nothing(HMODULE, LPCSTR)
{
    return nullptr;
}

}  // namespace

TEST(CrashReports, AskWindowsToLeaveTheHeapOut)
{
    {
        const ReplacedImport<FindFunction> noted(__imp_GetProcAddress, give_taker);
        keep_heap_out_of_crash_reports();
    }
    EXPECT_EQ(asked_for, "WerSetFlags");
    EXPECT_EQ(asked_module, GetModuleHandleW(L"kernel32.dll"));
    // WER_FAULT_REPORTING_FLAG_NOHEAP
    EXPECT_EQ(given_flags, std::vector<DWORD>{1});
}

TEST(CrashReports, AreLeftAloneOnAWindowsWithoutTheFunction)
{
    const ReplacedImport<FindFunction> missing(__imp_GetProcAddress, give_nothing);
    keep_heap_out_of_crash_reports();
    EXPECT_TRUE(given_flags.empty());
}
