#include "wallet/address.h"

#include "text/ascii.h"
#include "wallet/digest.h"

#include <algorithm>

namespace {

constexpr std::string_view kAlphabet = "123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz";

// number = number * factor + addend. The digits are in `base`, least significant first.
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

namespace {

constexpr std::uint8_t kVersion = 0x00;
constexpr std::size_t kVersionedSize = 21;  // version byte and hash160
constexpr std::size_t kChecksumSize = 4;
constexpr std::size_t kShortestAddress = 26;
constexpr std::size_t kLongestAddress = 35;
constexpr std::size_t kCompressedKeySize = 33;

std::optional<std::array<std::uint8_t, kChecksumSize>> checksum(std::span<const std::uint8_t> bytes)
{
    const auto once = sha256(bytes);
    if (!once) return std::nullopt;
    const auto twice = sha256(once->bytes());
    if (!twice) return std::nullopt;
    std::array<std::uint8_t, kChecksumSize> first{};
    std::copy_n(twice->data(), first.size(), first.begin());
    return first;
}

}  // namespace

std::optional<Hash160> hash160(std::span<const std::uint8_t> bytes)
{
    const auto digest = sha256(bytes);
    if (!digest) return std::nullopt;
    return ripemd160(digest->bytes());
}

std::string address_from_hash160(const Hash160& hash)
{
    std::array<std::uint8_t, kVersionedSize + kChecksumSize> payload{kVersion};
    std::copy(hash.begin(), hash.end(), payload.begin() + 1);
    const auto check = checksum(std::span(payload).first<kVersionedSize>());
    if (!check) return {};
    std::copy(check->begin(), check->end(), payload.begin() + kVersionedSize);
    return base58_encode(payload);
}

std::string address_from_public_key(std::string_view public_key_hex)
{
    const auto key = hex_decode(public_key_hex);
    if (key.size() != kCompressedKeySize) return {};
    const auto hash = hash160(key);
    return hash ? address_from_hash160(*hash) : std::string();
}

std::optional<Hash160> hash160_from_address(std::string_view address)
{
    if (address.size() < kShortestAddress || address.size() > kLongestAddress) return std::nullopt;
    const auto payload = base58_decode(address);
    if (!payload || payload->size() != kVersionedSize + kChecksumSize || payload->front() != kVersion) {
        return std::nullopt;
    }
    const auto versioned = std::span(*payload).first<kVersionedSize>();
    const auto check = checksum(versioned);
    if (!check || !std::equal(check->begin(), check->end(), payload->begin() + kVersionedSize)) return std::nullopt;
    Hash160 hash{};
    std::copy(versioned.begin() + 1, versioned.end(), hash.begin());
    return hash;
}
