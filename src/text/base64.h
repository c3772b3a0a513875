// Base64 (RFC 4648, standard alphabet, "=" padding, one line).
#pragma once

#include <string>
#include <string_view>

std::string base64_encode(std::string_view bytes);

// Lenient on purpose: every character outside the alphabet is skipped, and trailing bits that do not complete a byte
// are dropped. Never fails.
std::string base64_decode(std::string_view text);
