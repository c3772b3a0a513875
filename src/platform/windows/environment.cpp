#include "platform/environment.h"

#include "platform/text_conversion.h"
#include "text/path.h"

#include <windows.h>

namespace {

std::wstring wide_executable_folder()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) return std::wstring(without_last_element(std::wstring_view(path).substr(0, length)));
        path.resize(path.size() * 2);
    }
}

}  // namespace

std::string local_app_data()
{
    // The value may change between the two questions: ask until it fits.
    std::wstring value(MAX_PATH, L'\0');
    for (;;) {
        const DWORD size = GetEnvironmentVariableW(L"LOCALAPPDATA", value.data(), static_cast<DWORD>(value.size()));
        if (size == 0) return {};
        const bool fits = size < value.size();
        value.resize(size);
        if (fits) return narrow(value);
    }
}

std::string executable_folder()
{
    return narrow(wide_executable_folder());
}

void enter_executable_folder()
{
    SetCurrentDirectoryW(wide_executable_folder().c_str());
}

std::string_view load_resource(int id)
{
    const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_RCDATA);
    const HGLOBAL loaded = found == nullptr ? nullptr : LoadResource(nullptr, found);
    const void* bytes = loaded == nullptr ? nullptr : LockResource(loaded);
    if (bytes == nullptr) return {};
    return {static_cast<const char*>(bytes), SizeofResource(nullptr, found)};
}

void pause(std::chrono::milliseconds duration)
{
    Sleep(static_cast<DWORD>(duration.count()));
}
