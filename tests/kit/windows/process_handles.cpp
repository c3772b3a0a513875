#include "kit/windows/process_handles.h"

#include <windows.h>

#include <cstdint>

namespace {

// An entry of the table of all drawing objects that the process environment block leads to.
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
constexpr int kEntries = 0x4000;

int drawing_objects()
{
    using GetEnvironment = const std::uint8_t*(WINAPI*)();
    const auto environment_block = reinterpret_cast<GetEnvironment>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb")));
    const std::uint8_t* environment = environment_block();
    const auto* table = *reinterpret_cast<const DrawingEntry* const*>(environment + kTableInEnvironment);
    int count = 0;
    for (int i = 0; i < kEntries; ++i)
        if (table[i].type != 0) ++count;
    return count;
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
    return {drawing_objects(), windows()};
}

int next_window_object()
{
    const HWND window = CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    DestroyWindow(window);
    return LOWORD(reinterpret_cast<UINT_PTR>(window));
}
