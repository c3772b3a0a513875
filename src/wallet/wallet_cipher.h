// AES-256-GCM as the wallet lock uses it: a fresh 12-byte IV for every text, a 16-byte tag, no associated data.
#pragma once

#include "text/secret.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

struct SealedText {
    std::vector<std::uint8_t> iv;          // 12 bytes
    std::vector<std::uint8_t> tag;         // 16 bytes
    std::vector<std::uint8_t> ciphertext;  // as long as the plain text
};

// Empty when there is no randomness or libcrypto fails.
std::optional<SealedText> encrypt(std::span<const std::uint8_t, 32> key, const SecretText& plain);

// Empty when the IV or the tag has another size, the ciphertext is empty, or the tag does not fit.
std::optional<SecretText> decrypt(std::span<const std::uint8_t, 32> key, const SealedText& sealed);
