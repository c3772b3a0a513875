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

// Whether `second` may follow `first`, beyond being a tail: no longer form than needed, no surrogate, nothing beyond
// the last character.
bool may_follow(std::uint8_t first, std::uint8_t second)
{
    if (first == 0xE0) return second >= 0xA0;
    if (first == 0xED) return second <= 0x9F;
    if (first == 0xF0) return second >= 0x90;
    if (first == 0xF4) return second <= 0x8F;
    return true;
}

bool is_tail(std::uint8_t byte)
{
    return (byte & 0xC0) == 0x80;
}

bool is_character(char32_t code)
{
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

}  // namespace

std::wstring widen(std::string_view utf8)
{
    std::wstring wide;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto byte = [&](std::size_t index) { return static_cast<std::uint8_t>(utf8[i + index]); };
        const std::size_t length = sequence_length(byte(0));
        std::uint32_t code = length == 1 ? byte(0) : byte(0) & (0x7FU >> length);
        std::size_t read = 1;
        while (read < length && i + read < utf8.size() && is_tail(byte(read)) &&
               (read > 1 || may_follow(byte(0), byte(1))))
            code = (code << 6) | (byte(read++) & 0x3FU);
        wide += read == length ? static_cast<wchar_t>(code) : kReplacement;
        i += read;
    }
    return wide;
}

std::string narrow(std::wstring_view wide)
{
    std::string utf8;
    for (const wchar_t character : wide) {
        const auto given = static_cast<char32_t>(character);
        const char32_t code = is_character(given) ? given : static_cast<char32_t>(kReplacement);
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
