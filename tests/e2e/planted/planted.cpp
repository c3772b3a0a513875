// A library as somebody could plant it beside the program, under the name of one of Windows' own: once it is loaded, a
// file beside it tells.
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE self, DWORD reason, LPVOID)
{
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    wchar_t mark[2 * MAX_PATH];
    const DWORD length = GetModuleFileNameW(self, mark, MAX_PATH);
    lstrcpyW(mark + length, L".was-loaded");
    CloseHandle(CreateFileW(mark, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return TRUE;
}
