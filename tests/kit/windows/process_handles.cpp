#include "kit/windows/process_handles.h"

#include <windows.h>

#include <winternl.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace {

// An entry of the table of drawing objects that the process environment block leads to: under Wine those of that
// process alone.
struct DrawingEntry {
    std::uint64_t object;
    std::uint16_t process;
    std::uint16_t locks;
    std::uint16_t unique;
    std::uint8_t type;  // 0: free
    std::uint8_t flags;
    std::uint64_t user_data;
};

constexpr std::size_t kTableInEnvironment = 0xF8;
constexpr std::size_t kEntries = 0x4000;

bool read(HANDLE process, const void* address, void* into, std::size_t size)
{
    return ReadProcessMemory(process, address, into, size, nullptr) != FALSE;
}

int drawing_objects_in_table(HANDLE process)
{
    PROCESS_BASIC_INFORMATION basics{};
    NtQueryInformationProcess(process, ProcessBasicInformation, &basics, sizeof basics, nullptr);
    const void* table = nullptr;
    std::vector<DrawingEntry> entries(kEntries);
    if (!read(process, reinterpret_cast<const char*>(basics.PebBaseAddress) + kTableInEnvironment, &table,
              sizeof table) ||
        !read(process, table, entries.data(), entries.size() * sizeof entries[0]))
        return 0;
    return static_cast<int>(std::ranges::count_if(entries, [](const DrawingEntry& entry) { return entry.type != 0; }));
}

BOOL CALLBACK count_window(HWND, LPARAM count)
{
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK count_window_and_children(HWND window, LPARAM count)
{
    count_window(window, count);
    EnumChildWindows(window, count_window, count);
    return TRUE;
}

int windows()
{
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), count_window_and_children, reinterpret_cast<LPARAM>(&count));
    return count;
}

}  // namespace

ObjectCounts held_objects()
{
    return {drawing_objects(GetCurrentProcess()), windows()};
}

int drawing_objects(HANDLE process)
{
    const DWORD counted = GetGuiResources(process, GR_GDIOBJECTS);
    return counted != 0 ? static_cast<int>(counted) : drawing_objects_in_table(process);
}

int next_window_object()
{
    const HWND window = CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    DestroyWindow(window);
    return LOWORD(reinterpret_cast<UINT_PTR>(window));
}
