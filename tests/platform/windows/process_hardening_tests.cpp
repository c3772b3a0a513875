// What Windows is asked for; what it makes of it, Wine does not show.
#include "platform/windows/process_hardening.h"

#include "kit/windows/replaced_import.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>
#include <vector>

extern "C" {
extern decltype(&GetProcAddress) __imp_GetProcAddress;
extern decltype(&HeapSetInformation) __imp_HeapSetInformation;
}

namespace {

std::vector<std::string> asked;                       // in the order of the calls
std::map<PROCESS_MITIGATION_POLICY, DWORD> policies;  // the flags that were set
std::vector<HEAP_INFORMATION_CLASS> heap_settings;
DWORD dll_directories = 0;
bool is_old_windows = false;

BOOL WINAPI note_policy(PROCESS_MITIGATION_POLICY kind, PVOID flags, SIZE_T size)
{
    EXPECT_EQ(size, sizeof(DWORD));
    std::memcpy(&policies[kind], flags, sizeof(DWORD));
    return FALSE;  // as where a kind is unknown
}

BOOL WINAPI note_directories(DWORD flags)
{
    dll_directories = flags;
    return TRUE;
}

BOOL WINAPI note_heap(HANDLE heap, HEAP_INFORMATION_CLASS kind, PVOID, SIZE_T)
{
    EXPECT_EQ(heap, nullptr);
    heap_settings.push_back(kind);
    return FALSE;
}

template <typename Function>
FARPROC as_function(Function* function)
{
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(function));
}

FARPROC WINAPI look_up(HMODULE, LPCSTR name)
{
    asked.emplace_back(name);
    if (is_old_windows) return nullptr;
    if (asked.back() == "SetProcessMitigationPolicy") return as_function(note_policy);
    if (asked.back() == "SetDefaultDllDirectories") return as_function(note_directories);
    return nullptr;
}

class ProcessHardening : public testing::Test {
protected:
    ProcessHardening()
    {
        asked.clear();
        policies.clear();
        heap_settings.clear();
        dll_directories = 0;
        is_old_windows = false;
    }

    ReplacedImport<decltype(&GetProcAddress)> m_functions{__imp_GetProcAddress, look_up};
    ReplacedImport<decltype(&HeapSetInformation)> m_heap{__imp_HeapSetInformation, note_heap};
};

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

class CrashReports : public testing::Test {
protected:
    CrashReports() { given_flags.clear(); }
};

}  // namespace

TEST_F(ProcessHardening, AHeapThatIsDamagedEndsTheProcess)
{
    harden_process();
    EXPECT_EQ(heap_settings, std::vector{HeapEnableTerminationOnCorruption});
}

TEST_F(ProcessHardening, WhatIsLoadedByNameComesFromTheSystemsFolder)
{
    harden_process();
    EXPECT_EQ(dll_directories, static_cast<DWORD>(LOAD_LIBRARY_SEARCH_SYSTEM32));
}

// The bits are those of Microsoft's documentation of the two structures.
TEST_F(ProcessHardening, NothingIsLoadedFromARemoteOrLowIntegrityPlaceAndNoFontFromOutsideTheSystem)
{
    constexpr DWORD kNoRemoteImages = 1;
    constexpr DWORD kNoLowMandatoryLabelImages = 2;
    constexpr DWORD kPreferSystem32Images = 4;
    constexpr DWORD kDisableNonSystemFonts = 1;
    harden_process();
    EXPECT_EQ(policies,
              (std::map<PROCESS_MITIGATION_POLICY, DWORD>{
                  {ProcessImageLoadPolicy, kNoRemoteImages | kNoLowMandatoryLabelImages | kPreferSystem32Images},
                  {ProcessFontDisablePolicy, kDisableNonSystemFonts}}));
}

TEST_F(ProcessHardening, AnOlderWindowsGoesOnWithoutIt)
{
    is_old_windows = true;
    harden_process();
    EXPECT_EQ(asked, (std::vector<std::string>{"SetDefaultDllDirectories", "SetProcessMitigationPolicy"}));
    EXPECT_TRUE(policies.empty());
}

TEST_F(CrashReports, AskWindowsToLeaveTheHeapOut)
{
    {
        const ReplacedImport<decltype(&GetProcAddress)> noted(__imp_GetProcAddress, give_taker);
        keep_heap_out_of_crash_reports();
    }
    EXPECT_EQ(asked_for, "WerSetFlags");
    EXPECT_EQ(asked_module, GetModuleHandleW(L"kernel32.dll"));
    // WER_FAULT_REPORTING_FLAG_NOHEAP
    EXPECT_EQ(given_flags, std::vector<DWORD>{1});
}

TEST_F(CrashReports, AreLeftAloneOnAWindowsWithoutTheFunction)
{
    const ReplacedImport<decltype(&GetProcAddress)> missing(__imp_GetProcAddress, give_nothing);
    keep_heap_out_of_crash_reports();
    EXPECT_TRUE(given_flags.empty());
}
