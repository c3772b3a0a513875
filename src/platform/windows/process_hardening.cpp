#include "platform/windows/process_hardening.h"

#include "platform/windows/windows_version.h"

namespace {

using SetPolicy = decltype(&SetProcessMitigationPolicy);

template <typename Policy>
void set_policy(SetPolicy set, PROCESS_MITIGATION_POLICY kind, Policy policy)
{
    set(kind, &policy, sizeof policy);
}

// From Windows 8 on; each kind since a version of its own.
void set_policies(SetPolicy set)
{
    PROCESS_MITIGATION_IMAGE_LOAD_POLICY images{};
    images.NoRemoteImages = 1;
    images.NoLowMandatoryLabelImages = 1;
    images.PreferSystem32Images = 1;
    set_policy(set, ProcessImageLoadPolicy, images);

    PROCESS_MITIGATION_FONT_DISABLE_POLICY fonts{};
    fonts.DisableNonSystemFonts = 1;
    set_policy(set, ProcessFontDisablePolicy, fonts);
}

// WER_FAULT_REPORTING_FLAG_NOHEAP of <werapi.h>, which mingw-w64's compiler cannot read.
constexpr DWORD kNoHeap = 1;

}  // namespace

void harden_process()
{
    HeapSetInformation(nullptr, HeapEnableTerminationOnCorruption, nullptr, 0);
    if (const auto search =
            system_function<decltype(&SetDefaultDllDirectories)>(L"kernel32.dll", "SetDefaultDllDirectories"))
        search(LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (const auto set = system_function<SetPolicy>(L"kernel32.dll", "SetProcessMitigationPolicy")) set_policies(set);
}

void keep_heap_out_of_crash_reports()
{
    using SetFlags = HRESULT(WINAPI*)(DWORD);
    if (const auto set_flags = system_function<SetFlags>(L"kernel32.dll", "WerSetFlags")) set_flags(kNoHeap);
}
