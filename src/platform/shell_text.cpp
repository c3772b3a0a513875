#include "platform/shell_text.h"

#include <algorithm>

namespace {

bool is_quote_or_control(wchar_t c)
{
    return c == L'"' || c < 0x20 || (c >= 0x7F && c < 0xA0);
}

// Those that Unicode calls separators.
bool is_blank(wchar_t c)
{
    return c == 0x20 || c == 0xA0 || c == 0x1680 || (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 ||
           c == 0x202F || c == 0x205F || c == 0x3000;
}

}  // namespace

bool can_be_quoted(std::wstring_view text)
{
    return std::ranges::none_of(text, is_quote_or_control);
}

bool is_one_word(std::wstring_view text)
{
    return can_be_quoted(text) && std::ranges::none_of(text, is_blank);
}
