#include "platform/windows/windows_version.h"

#include <tuple>

bool is_new_enough(const WindowsVersion& version)
{
    return std::tie(version.major, version.minor, version.build) >= std::make_tuple(10UL, 0UL, 15063UL);
}

WindowsVersion windows_version()
{
    // GetVersionEx tells each program the newest version that its manifest names; this function tells the truth.
    using GetVersionFunction = LONG(WINAPI*)(OSVERSIONINFOW*);
    const auto get_version = system_function<GetVersionFunction>(L"ntdll.dll", "RtlGetVersion");
    OSVERSIONINFOW told{};
    told.dwOSVersionInfoSize = sizeof told;
    if (get_version == nullptr || get_version(&told) != 0) return {};
    return {told.dwMajorVersion, told.dwMinorVersion, told.dwBuildNumber};
}

bool is_on_a_windows_new_enough()
{
    if (is_new_enough(windows_version())) return true;
    MessageBoxW(nullptr, L"Brasslet needs Windows 10, version 1703 or newer.", L"Brasslet", MB_OK | MB_ICONERROR);
    return false;
}
