// ASCII text helpers that do not depend on the locale.
#pragma once

#include <string>
#include <string_view>

bool is_ascii_space(char c);  // space, tab, line feed, vertical tab, form feed, carriage return
bool is_ascii_digit(char c);
bool is_ascii_letter(char c);

std::string lower_ascii(std::string_view text);
std::string_view trimmed(std::string_view text);  // white space removed at both ends
bool starts_with_ignoring_case(std::string_view text, std::string_view lower_case_prefix);
