// Private keys that have children (BIP32) on the curve secp256k1.
#pragma once

#include "text/secret.h"

#include <cstdint>
#include <optional>
#include <span>

inline constexpr std::uint32_t kHardened = 0x80000000;

struct ExtendedKey {
    WipedBuffer<32> private_key;  // big-endian
    WipedBuffer<32> chain_code;
};

// The master key. Empty when the HMAC fails.
std::optional<ExtendedKey> master_key(std::span<const std::uint8_t> seed);

// Child of `parent` at `index` (private parent to private child; 0x80000000 and above are hardened). Empty when the
// child is not a valid key, which has a chance of about 2^-127.
std::optional<ExtendedKey> derive_child(const ExtendedKey& parent, std::uint32_t index);
