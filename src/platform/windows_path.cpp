#include "platform/windows_path.h"

#include <windows.h>

namespace {

UINT file_code_page()
{
    return AreFileApisANSI() != 0 ? CP_ACP : CP_OEMCP;
}

}  // namespace

std::wstring wide_path(const std::string& path)
{
    // Windows would take what stands before it for the whole path, which may be there.
    if (path.find('\0') != std::string::npos) return {};
    const int size = static_cast<int>(path.size());
    const int needed = MultiByteToWideChar(file_code_page(), 0, path.data(), size, nullptr, 0);
    if (needed <= 0) return {};
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(file_code_page(), 0, path.data(), size, wide.data(), needed);
    return wide;
}

std::string narrow_path(const std::wstring& path)
{
    const int size = static_cast<int>(path.size());
    const int needed = WideCharToMultiByte(file_code_page(), 0, path.data(), size, nullptr, 0, nullptr, nullptr);
    if (needed <= 0) return {};
    std::string narrow(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(file_code_page(), 0, path.data(), size, narrow.data(), needed, nullptr, nullptr);
    return narrow;
}
