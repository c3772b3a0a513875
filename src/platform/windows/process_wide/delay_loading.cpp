// Where the libraries come from that are loaded when one of their functions is first called
// (cmake/delay_imports.cmake), and what becomes of a call that finds none.
//
// The toolchain's helper asks the two hooks below, documented for it under "Linker support for delay-loaded DLLs" by
// Microsoft. Without them it would search for the library by its name alone, and raise an exception for what is
// missing.
#include <windows.h>

#include <delayimp.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

// A function that was to return a count, a handle or a truth value says that there is none...
INT_PTR WINAPI return_nothing()
{
    SetLastError(ERROR_PROC_NOT_FOUND);
    return 0;
}

// ... and zero means success where an HRESULT or an NTSTATUS is returned. This value is an error to both.
INT_PTR WINAPI return_error()
{
    return E_NOTIMPL;
}

FARPROC stand_in_of(std::string_view library)
{
    constexpr std::string_view kReturnStatus[] = {"bcrypt.dll", "dwmapi.dll", "shcore.dll"};
    const bool returns_status = std::ranges::find(kReturnStatus, library) != std::end(kReturnStatus);
    return reinterpret_cast<FARPROC>(returns_status ? return_error : return_nothing);
}

// A module takes the place of a function where the helper asks for one.
FARPROC as_answer(HMODULE module)
{
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(module));
}

FARPROC WINAPI load_from_system(unsigned notice, PDelayLoadInfo info)
{
    if (notice != dliNotePreLoadLibrary) return nullptr;
    const HMODULE library = LoadLibraryExA(info->szDll, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    // In place of a library that is missing, one that lacks the function: the program itself, which exports none.
    return as_answer(library != nullptr ? library : GetModuleHandleW(nullptr));
}

FARPROC WINAPI stand_in(unsigned notice, PDelayLoadInfo info)
{
    return notice == dliFailGetProc ? stand_in_of(info->szDll) : nullptr;
}

}  // namespace

// The names are the toolchain's.
PfnDliHook __pfnDliNotifyHook2 = load_from_system;  // NOLINT(bugprone-reserved-identifier)
PfnDliHook __pfnDliFailureHook2 = stand_in;         // NOLINT(bugprone-reserved-identifier)
