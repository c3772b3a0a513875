// Payment addresses: Base58Check over a hash160 with version byte 0x00 (P2PKH).
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Base58: a number of any length in an alphabet without 0, O, I and l. A leading zero byte is written as "1".
std::string base58_encode(std::span<const std::uint8_t> bytes);

// Empty when a character is not in the alphabet. The time grows with the square of the length: bound it first.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> base58_decode(std::string_view text);

using Hash160 = std::array<std::uint8_t, 20>;

// RIPEMD-160 of SHA-256. Empty when a hash fails.
[[nodiscard]] std::optional<Hash160> hash160(std::span<const std::uint8_t> bytes);

// Empty when the checksum cannot be computed.
std::string address_from_hash160(const Hash160& hash);

// Empty when `public_key_hex` is not 33 bytes of hex or a hash fails.
std::string address_from_public_key(std::string_view public_key_hex);

// Empty unless `address` is 26 to 35 Base58 characters for exactly 25 bytes with version byte 0x00 and the right
// checksum.
[[nodiscard]] std::optional<Hash160> hash160_from_address(std::string_view address);
