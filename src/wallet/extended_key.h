// Extended private keys and their children (BIP32), with the arithmetic on the curve secp256k1 (SEC 2) that derivation
// needs. Numbers are 32 bytes, big-endian.
#pragma once

#include "text/secret.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>

using PublicKey = std::array<std::uint8_t, 33>;  // SEC 1 compressed point

// Empty when `private_key` is zero or not below the group order, or libcrypto fails.
[[nodiscard]] std::optional<PublicKey> public_key_of(std::span<const std::uint8_t, 32> private_key);

// (tweak + key) mod group order. Empty when `tweak` is not below the order, the sum is zero, or libcrypto fails.
[[nodiscard]] std::optional<WipedBuffer<32>> tweaked_key(std::span<const std::uint8_t, 32> tweak,
                                                         std::span<const std::uint8_t, 32> key);

inline constexpr std::uint32_t kHardened = 0x80000000;

struct ExtendedKey {
    WipedBuffer<32> private_key;
    WipedBuffer<32> chain_code;
};

// The master key. Empty when the HMAC fails.
[[nodiscard]] std::optional<ExtendedKey> master_key(std::span<const std::uint8_t> seed);

// Child of `parent` at `index` (private parent to private child; 0x80000000 and above are hardened). Empty when the
// child is not a valid key, which has a chance of about 2^-127.
[[nodiscard]] std::optional<ExtendedKey> derive_child(const ExtendedKey& parent, std::uint32_t index);
