#include "text/base64.h"

#include <cstdint>

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
