#include "text/ascii.h"

#include <algorithm>

namespace {

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool is_ascii_space(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool is_ascii_digit(char c)
{
    return c >= '0' && c <= '9';
}

bool is_ascii_letter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string lower_ascii(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), lowered);
    return lower;
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && is_ascii_space(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && is_ascii_space(text.back()))
        text.remove_suffix(1);
    return text;
}

bool starts_with_ignoring_case(std::string_view text, std::string_view lower_case_prefix)
{
    return text.size() >= lower_case_prefix.size() &&
           lower_ascii(text.substr(0, lower_case_prefix.size())) == lower_case_prefix;
}
