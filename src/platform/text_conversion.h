// Between the narrow UTF-8 of the program and the wide text of Windows. Bytes that are no UTF-8 become U+FFFD.
#pragma once

#include <string>
#include <string_view>

std::wstring widen(std::string_view utf8);
std::string narrow(std::wstring_view wide);
