// From the program's narrow paths, UTF-8 whatever the code page of Windows is, to the wide ones of Windows.
#pragma once

#include "platform/text_conversion.h"

#include <string>

// Empty, which names no file, for a path that holds a zero byte: Windows would take what stands before it for the whole
// path, which may be there.
inline std::wstring wide_path(const std::string& path)
{
    return path.find('\0') == std::string::npos ? widen(path) : std::wstring();
}
