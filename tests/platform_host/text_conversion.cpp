#include "platform/text_conversion.h"

#include <cstdint>

namespace {

constexpr wchar_t kReplacement = 0xFFFD;

// Bytes of the sequence that `first` opens; 0 when no sequence begins so.
std::size_t sequence_length(std::uint8_t first)
{
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF) return 2;
    if (first >= 0xE0 && first <= 0xEF) return 3;
    if (first >= 0xF0 && first <= 0xF4) return 4;
    return 0;
}

bool is_character(std::uint32_t code, std::size_t length)
{
    constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    return code >= kSmallest[length] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

}  // namespace

std::wstring widen(std::string_view utf8)
{
    std::wstring wide;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto first = static_cast<std::uint8_t>(utf8[i]);
        const std::size_t length = sequence_length(first);
        std::uint32_t code = length == 1 ? first : first & (0x7FU >> length);
        std::size_t read = length == 0 ? 0 : 1;
        while (read != 0 && read < length && i + read < utf8.size() && (utf8[i + read] & 0xC0) == 0x80)
            code = (code << 6) | (static_cast<std::uint8_t>(utf8[i + read++]) & 0x3FU);
        const bool whole = read != 0 && read == length && is_character(code, length);
        wide += whole ? static_cast<wchar_t>(code) : kReplacement;
        i += whole ? length : 1;
    }
    return wide;
}

std::string narrow(std::wstring_view wide)
{
    std::string utf8;
    for (const wchar_t character : wide) {
        const auto code = static_cast<char32_t>(character);
        const auto tail = [&utf8, code](unsigned shift) { utf8 += static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
        if (code < 0x80) {
            utf8 += static_cast<char>(code);
        } else if (code < 0x800) {
            utf8 += static_cast<char>(0xC0 | (code >> 6));
            tail(0);
        } else if (code < 0x10000) {
            utf8 += static_cast<char>(0xE0 | (code >> 12));
            tail(6);
            tail(0);
        } else {
            utf8 += static_cast<char>(0xF0 | (code >> 18));
            tail(12);
            tail(6);
            tail(0);
        }
    }
    return utf8;
}
