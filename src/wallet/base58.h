// Base58: a number of any length in the alphabet that leaves out 0, O, I and l. A leading zero byte is written as "1".
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

std::string base58_encode(std::span<const std::uint8_t> bytes);

// Empty when a character is not in the alphabet. The time grows with the square of the length: bound it first.
std::optional<std::vector<std::uint8_t>> base58_decode(std::string_view text);
