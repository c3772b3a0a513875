// Keys and addresses as texts: what stands at a path below a master key, and what belongs to a single private key.
#pragma once

#include "text/secret.h"
#include "wallet/extended_key.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

using DerivationPath = std::array<std::uint32_t, 5>;

struct DerivedKey {
    SecretText private_key;  // 64 lower-case hex digits
    std::string public_key;  // 66 lower-case hex digits, compressed
    std::string address;     // Base58Check, version 0x00
};

// Key at the five-step `path` below `master`. Empty when a step fails.
std::optional<DerivedKey> derive_key(const ExtendedKey& master, const DerivationPath& path);

// 66 lower-case hex digits; empty when `private_key_hex` is not 32 bytes in the range of the group.
std::string public_key_from_private(const SecretText& private_key_hex);
