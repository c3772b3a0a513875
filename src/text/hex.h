// Hexadecimal text: written in lower case, read in either case.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

std::string hex_encode(std::span<const std::uint8_t> bytes);

// Empty, never a part, when the length is odd or a character is not a hex digit.
std::vector<std::uint8_t> hex_decode(std::string_view text);
