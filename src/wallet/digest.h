// The hashes that keys and addresses are made with.
#pragma once

#include "text/secret.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

using Digest = WipedBuffer<32>;

// All of them: empty when libcrypto fails.
[[nodiscard]] std::optional<Digest> sha256(std::span<const std::uint8_t> bytes);
[[nodiscard]] std::optional<std::array<std::uint8_t, 20>> ripemd160(std::span<const std::uint8_t> bytes);
[[nodiscard]] std::optional<WipedBuffer<64>> hmac_sha512(std::span<const std::uint8_t> key,
                                                         std::span<const std::uint8_t> data);

// The bytes of a text, as the hashes take them.
std::span<const std::uint8_t> bytes_of(std::string_view text);
