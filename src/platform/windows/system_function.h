// Functions that an older Windows lacks, looked up in a library of Windows that is always loaded.
#pragma once

#include <windows.h>

// Null when this Windows has no such function.
template <typename Function>
Function system_function(const wchar_t* library, const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(library), name)));
}
