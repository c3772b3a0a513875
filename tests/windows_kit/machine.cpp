#include "windows_kit/machine.h"

#include <windows.h>

bool is_wine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}
