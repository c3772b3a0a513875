// ASCII strings, whatever the locale: characters, case and white space, and bytes written as hex or Base64.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

bool is_ascii_space(char c);  // space, tab, line feed, vertical tab, form feed, carriage return
bool is_ascii_digit(char c);
bool is_ascii_letter(char c);

std::string lower_ascii(std::string_view text);
std::string_view trimmed(std::string_view text);            // white space removed at both ends
std::string joined(const std::vector<std::string>& texts);  // with ", " between them
bool starts_with_ignoring_case(std::string_view text, std::string_view lower_case_prefix);

// Hexadecimal digits: written in lower case, read in either case.
std::string hex_encode(std::span<const std::uint8_t> bytes);

// Empty when the length is odd or a character is not a hex digit.
std::vector<std::uint8_t> hex_decode(std::string_view text);

// Base64 (RFC 4648, standard alphabet, "=" padding, one line).
std::string base64_encode(std::string_view bytes);

// Skips every character outside the alphabet and drops trailing bits that do not complete a byte. Never fails.
std::string base64_decode(std::string_view text);
