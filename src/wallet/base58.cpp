#include "wallet/base58.h"

#include <algorithm>

namespace {

constexpr std::string_view kAlphabet = "123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz";

// number = number * factor + addend, for a number of digits in `base`, the least significant first.
void multiply_and_add(std::vector<std::uint8_t>& number, std::uint32_t base, std::uint32_t factor, std::uint32_t addend)
{
    std::uint32_t carry = addend;
    for (std::uint8_t& digit : number) {
        carry += digit * factor;
        digit = static_cast<std::uint8_t>(carry % base);
        carry /= base;
    }
    for (; carry != 0; carry /= base)
        number.push_back(static_cast<std::uint8_t>(carry % base));
}

}  // namespace

std::string base58_encode(std::span<const std::uint8_t> bytes)
{
    std::vector<std::uint8_t> digits;
    for (const std::uint8_t byte : bytes)
        multiply_and_add(digits, 58, 256, byte);

    const auto zeros = std::find_if(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte != 0; });
    std::string text(static_cast<std::size_t>(zeros - bytes.begin()), kAlphabet[0]);
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit)
        text += kAlphabet[*digit];
    return text;
}

std::optional<std::vector<std::uint8_t>> base58_decode(std::string_view text)
{
    std::vector<std::uint8_t> number;
    for (const char c : text) {
        const std::size_t digit = kAlphabet.find(c);
        if (digit == std::string_view::npos) return std::nullopt;
        multiply_and_add(number, 256, 58, static_cast<std::uint32_t>(digit));
    }
    const std::size_t zeros = std::min(text.find_first_not_of(kAlphabet[0]), text.size());
    number.insert(number.end(), zeros, 0);
    std::reverse(number.begin(), number.end());
    return number;
}
