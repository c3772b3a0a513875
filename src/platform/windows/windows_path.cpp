#include "platform/windows/windows_path.h"

#include "platform/text_conversion.h"

std::wstring wide_path(const std::string& path)
{
    // Windows would take what stands before it for the whole path, which may be there.
    return path.find('\0') == std::string::npos ? widen(path) : std::wstring();
}

std::string narrow_path(const std::wstring& path)
{
    return narrow(path);
}
