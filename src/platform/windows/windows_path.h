// Between the program's narrow paths, UTF-8 whatever the code page of Windows is, and the wide ones of Windows.
#pragma once

#include <string>

// Empty, which names no file, for a path that holds a zero byte.
std::wstring wide_path(const std::string& path);
std::string narrow_path(const std::wstring& path);
