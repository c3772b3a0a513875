// Arithmetic on the curve secp256k1 (SEC 2), as far as key derivation needs it. Numbers are 32 bytes, big-endian.
#pragma once

#include "text/secret.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>

using PublicKey = std::array<std::uint8_t, 33>;  // SEC 1 compressed point

// Empty when `private_key` is zero or not below the group order, or libcrypto fails.
std::optional<PublicKey> public_key_of(std::span<const std::uint8_t, 32> private_key);

// (tweak + key) mod group order. Empty when `tweak` is not below the order, the sum is zero, or libcrypto fails.
std::optional<WipedBuffer<32>> tweaked_key(std::span<const std::uint8_t, 32> tweak,
                                           std::span<const std::uint8_t, 32> key);
