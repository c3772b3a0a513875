// The 2048 English words of BIP39.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

// Position of `word` in the list, 0 to 2047; capitals are taken for small letters. Empty for any other word. Makes no
// copy of the word, which is a part of a secret.
std::optional<std::uint16_t> word_position(std::string_view word);
