#include "platform/environment.h"

#include "platform/windows/windows_path.h"

#include <windows.h>

std::string local_app_data()
{
    // The value may change between the two questions: ask until it fits.
    std::wstring value(MAX_PATH, L'\0');
    for (;;) {
        const DWORD size = GetEnvironmentVariableW(L"LOCALAPPDATA", value.data(), static_cast<DWORD>(value.size()));
        if (size == 0) return {};
        const bool fits = size < value.size();
        value.resize(size);
        if (fits) return narrow_path(value);
    }
}
