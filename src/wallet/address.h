// Payment addresses: Base58Check over a hash160 with version byte 0x00 (P2PKH).
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

using Hash160 = std::array<std::uint8_t, 20>;

// RIPEMD-160 of SHA-256. Empty when a hash fails.
std::optional<Hash160> hash160(std::span<const std::uint8_t> bytes);

// Empty when the checksum cannot be computed.
std::string address_from_hash160(const Hash160& hash);

// Empty when the text is not 33 bytes of hex or a hash fails.
std::string address_from_public_key(std::string_view public_key_hex);

// Empty unless the text is 26 to 35 characters of the Base58 alphabet that hold exactly 25 bytes, version byte 0x00 and
// a right checksum.
std::optional<Hash160> hash160_from_address(std::string_view address);
