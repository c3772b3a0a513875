#include "text/ascii.h"

#include <algorithm>
#include <cstdint>

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

std::string joined(const std::vector<std::string>& texts)
{
    std::string all;
    for (const std::string& text : texts) {
        if (&text != &texts.front()) all += ", ";
        all += text;
    }
    return all;
}

bool starts_with_ignoring_case(std::string_view text, std::string_view lower_case_prefix)
{
    return text.size() >= lower_case_prefix.size() &&
           lower_ascii(text.substr(0, lower_case_prefix.size())) == lower_case_prefix;
}

namespace {

int digit_value(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

std::string hex_encode(std::span<const std::uint8_t> bytes)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

std::vector<std::uint8_t> hex_decode(std::string_view text)
{
    if (text.size() % 2 != 0) return {};
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.size() / 2);
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int high = digit_value(text[i]);
        const int low = digit_value(text[i + 1]);
        if (high < 0 || low < 0) return {};
        bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
    }
    return bytes;
}

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string base64_encode(std::string_view bytes)
{
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = (group << 8) | (i + k < bytes.size() ? static_cast<std::uint8_t>(bytes[i + k]) : 0U);
        text += kAlphabet[group >> 18];
        text += kAlphabet[(group >> 12) & 63];
        text += i + 1 < bytes.size() ? kAlphabet[(group >> 6) & 63] : '=';
        text += i + 2 < bytes.size() ? kAlphabet[group & 63] : '=';
    }
    return text;
}

std::string base64_decode(std::string_view text)
{
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t bits = 0;
    unsigned held = 0;
    for (const char c : text) {
        const std::size_t value = kAlphabet.find(c);
        if (value == std::string_view::npos) continue;
        bits = ((bits << 6) | static_cast<std::uint32_t>(value)) & 0xFFFFU;
        held += 6;
        if (held < 8) continue;
        held -= 8;
        bytes += static_cast<char>((bits >> held) & 0xFFU);
    }
    return bytes;
}
