// The hash functions of keys and addresses (libcrypto).
#pragma once

#include "text/secret.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

using Digest = WipedBuffer<32>;

// Each is empty when libcrypto fails.
[[nodiscard]] std::optional<Digest> sha256(std::span<const std::uint8_t> bytes);
[[nodiscard]] std::optional<std::array<std::uint8_t, 20>> ripemd160(std::span<const std::uint8_t> bytes);
[[nodiscard]] std::optional<WipedBuffer<64>> hmac_sha512(std::span<const std::uint8_t> key,
                                                         std::span<const std::uint8_t> data);

// The bytes of `text`.
std::span<const std::uint8_t> bytes_of(std::string_view text);
