// Recovery phrases (BIP39, English word list): their words, their checksum, and the seed that they stand for.
#pragma once

#include "text/secret.h"

#include <cstdint>
#include <optional>
#include <string_view>

// Index of `word` in BIP39's English list, 0 to 2047, ignoring case; empty for any other word. Makes no copy of the
// word, which is part of a secret.
std::optional<std::uint16_t> word_position(std::string_view word);

// True for exactly twelve words of the list with a valid checksum, ignoring case. Runs of blanks and tabs separate.
[[nodiscard]] bool is_valid_phrase(const SecretText& phrase);

using Seed = WipedBuffer<64>;

// The seed of `phrase`, computed over its bytes unchanged (blanks and capitals included), without a passphrase. Empty
// when libcrypto fails.
[[nodiscard]] std::optional<Seed> seed_from_phrase(const SecretText& phrase);

// PBKDF2-HMAC-SHA512 of `phrase` with 2048 rounds. BIP39's salt is "mnemonic" followed by the passphrase.
[[nodiscard]] std::optional<Seed> stretched_phrase(const SecretText& phrase, std::string_view salt);
