// Between the program's narrow paths and the wide ones of Windows. The narrow form is in the code page that the file
// functions of the process use: UTF-8, by the manifest of the program.
#pragma once

#include <string>

// Empty, which names no file, for a path that holds a zero byte.
std::wstring wide_path(const std::string& path);
std::string narrow_path(const std::wstring& path);
