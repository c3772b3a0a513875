#include "kit/windows/freed_memory.h"

#include <windows.h>

#include <algorithm>

bool is_still_there(std::uintptr_t freed)
{
    // The allocator may keep its own links in the first bytes of a free block.
    constexpr std::size_t kLinks = 64;
    unsigned char bytes[kFreedSize];
    SIZE_T read = 0;
    if (ReadProcessMemory(GetCurrentProcess(), reinterpret_cast<const void*>(freed), bytes, kFreedSize, &read) == 0)
        return false;
    return std::count(bytes + kLinks, bytes + kFreedSize, kFreedFiller) > 0;
}
