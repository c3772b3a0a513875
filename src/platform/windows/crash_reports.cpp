#include "platform/windows/crash_reports.h"

#include "platform/windows/system_function.h"

#include <windows.h>

namespace {

// WER_FAULT_REPORTING_FLAG_NOHEAP of <werapi.h>, which mingw-w64's compiler cannot read.
constexpr DWORD kNoHeap = 1;

}  // namespace

void keep_heap_out_of_crash_reports()
{
    using SetFlags = HRESULT(WINAPI*)(DWORD);
    if (const auto set_flags = system_function<SetFlags>(L"kernel32.dll", "WerSetFlags")) set_flags(kNoHeap);
}
