// From a recovery phrase to keys and addresses: BIP39 (English, twelve words, no pass-phrase), BIP32 private derivation
// on secp256k1, compressed public keys (SEC1) and P2PKH addresses. Pure computation; nothing here knows a file.
#pragma once

#include "text/secret.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

inline constexpr std::uint32_t kHardened = 0x80000000;

using Seed = WipedBuffer<64>;
using DerivationPath = std::array<std::uint32_t, 5>;

struct ExtendedKey {
    WipedBuffer<32> private_key;  // big-endian
    WipedBuffer<32> chain_code;
};

struct DerivedKey {
    SecretText private_key;  // 64 lower-case hex digits
    std::string public_key;  // 66 lower-case hex digits, compressed
    std::string address;     // Base58Check, version 0x00
};

// The BIP39 seed of `phrase`, computed over its bytes as they stand (blanks and capitals included). Empty when the
// key stretching fails.
std::optional<Seed> seed_from_phrase(const SecretText& phrase);

// The BIP32 master key. Empty when the HMAC fails.
std::optional<ExtendedKey> master_key(std::span<const std::uint8_t> seed);

// Child of `parent` at `index` (BIP32, private parent to private child; 0x80000000 and above are hardened). Empty when
// the child is not a valid key, which has a chance of about 2^-127.
std::optional<ExtendedKey> derive_child(const ExtendedKey& parent, std::uint32_t index);

// Key at the five-step `path` below `master`. Empty when a step fails.
std::optional<DerivedKey> derive_key(const ExtendedKey& master, const DerivationPath& path);

// 66 lower-case hex digits; empty when `private_key_hex` is not 32 bytes in the range of the group.
std::string public_key_from_private(const SecretText& private_key_hex);
