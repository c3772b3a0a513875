#include "windows_kit/used_objects.h"

#include "kit/windows/process_handles.h"
#include "platform/windows/windows_version.h"

#include <gtest/gtest.h>

#include <winternl.h>

#include <vector>

namespace {

// SYSTEM_HANDLE_INFORMATION_EX: the handles of all processes.
struct HandleEntry {
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT trace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};

struct HandleTable {
    ULONG_PTR count;
    ULONG_PTR reserved;
};

constexpr ULONG kAllHandles = 64;  // SystemExtendedHandleInformation

int handles_in_table(DWORD process)
{
    using Query = NTSTATUS(WINAPI*)(ULONG, void*, ULONG, ULONG*);
    const auto query = system_function<Query>(L"ntdll.dll", "NtQuerySystemInformation");
    std::vector<char> table(4 * 1024 * 1024);
    EXPECT_EQ(query(kAllHandles, table.data(), static_cast<ULONG>(table.size()), nullptr), 0);
    const auto* head = reinterpret_cast<const HandleTable*>(table.data());
    const auto* entries = reinterpret_cast<const HandleEntry*>(head + 1);
    int count = 0;
    for (ULONG_PTR i = 0; i < head->count; ++i)
        if (entries[i].process == process) ++count;
    return count;
}

}  // namespace

UsedObjects used_objects(HANDLE process)
{
    DWORD handles = 0;
    GetProcessHandleCount(process, &handles);
    const DWORD windows = GetGuiResources(process, GR_USEROBJECTS);
    return {handles != 0 ? static_cast<int>(handles) : handles_in_table(GetProcessId(process)),
            drawing_objects(process), windows != 0 ? static_cast<int>(windows) : next_window_object()};
}
