// From a recovery phrase to the seed of its keys (BIP39).
#pragma once

#include "text/secret.h"

#include <optional>
#include <string_view>

using Seed = WipedBuffer<64>;

// The seed of `phrase`, computed over its bytes as they stand (blanks and capitals included), with no pass-phrase.
// Empty when the key stretching fails.
std::optional<Seed> seed_from_phrase(const SecretText& phrase);

// PBKDF2-HMAC-SHA512 of `phrase` with 2048 rounds. BIP39's salt is "mnemonic" and the pass-phrase behind it.
std::optional<Seed> stretched_phrase(const SecretText& phrase, std::string_view salt);
