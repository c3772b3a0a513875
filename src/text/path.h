// Windows paths as strings: both "\" and "/" separate.
#pragma once

#include <string_view>

// `path` without its last element and without the separators before it. A root ("C:\", "\\server\", "\") is never
// shortened.
std::wstring_view without_last_element(std::wstring_view path);
