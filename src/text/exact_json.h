// JSON documents that are read, changed here and there and written again with every other number as it stood.
//
// The JSON library keeps a number with a fraction, an exponent or more than 64 bits as a double and would write other
// digits. In the trees made here such a number stands as a binary value, a kind that no JSON text has, with its text.
#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

// The document, or a value whose is_discarded() is true when the text is no JSON or is nested deeper than kDeepestJson.
nlohmann::json parse_exact_json(std::string_view text);

// As parse_exact_json, but text after the first complete object or array is not looked at.
nlohmann::json parse_first_exact_json(std::string_view text);

// As pretty_json, with the numbers of parse_exact_json written as they were read.
std::string pretty_exact_json(const nlohmann::json& document);
