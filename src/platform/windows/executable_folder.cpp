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

std::string executable_folder()
{
    return narrow(wide_executable_folder());
}

void enter_executable_folder()
{
    SetCurrentDirectoryW(wide_executable_folder().c_str());
}
