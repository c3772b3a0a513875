// Between the program's narrow strings (UTF-8) and Windows' wide ones. What is not valid becomes U+FFFD: bytes that are
// not UTF-8, and half of a surrogate pair without the other.
#pragma once

#include <string>
#include <string_view>

std::wstring widen(std::string_view utf8);
std::string narrow(std::wstring_view wide);
