#include "platform/crash_reports.h"

#include <windows.h>

namespace {

// WER_FAULT_REPORTING_FLAG_NOHEAP of <werapi.h>, which mingw-w64's compiler cannot read.
constexpr DWORD kNoHeap = 1;

}  // namespace

void keep_heap_out_of_crash_reports()
{
    using SetFlags = HRESULT(WINAPI*)(DWORD);
    const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");  // in every process from its first moment
    if (kernel == nullptr) return;
    const auto set_flags = reinterpret_cast<SetFlags>(reinterpret_cast<void*>(GetProcAddress(kernel, "WerSetFlags")));
    if (set_flags != nullptr) set_flags(kNoHeap);
}
