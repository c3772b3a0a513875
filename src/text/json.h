// JSON documents that others wrote. Reading never throws and refuses what is nested so deeply that a recursive walk
// over it could exhaust the stack; writing never fails on bad UTF-8.
#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>

inline constexpr int kDeepestJson = 200;  // levels of objects and arrays

// `text` up to the end of its first object or array; all of it when there is none or it is not closed. Empty optional
// when it is nested deeper than kDeepestJson.
std::optional<std::string_view> first_of_json(std::string_view text);

// The document. is_discarded() is true when `text` is not JSON or is nested deeper than kDeepestJson.
[[nodiscard]] nlohmann::json parse_json(std::string_view text);

// The string member `key` of `object`. Empty when `object` is not an object, or has no such member or one of another
// type.
std::string text_member(const nlohmann::json& object, const char* key);

std::string compact_json(const nlohmann::json& document);
std::string pretty_json(const nlohmann::json& document);  // indent 2, keys in byte-wise order

// As parse_json, for a document that is written again: numbers keep their digits. The JSON library keeps a number with
// a fraction, an exponent or more than 64 bits as a double, which it would write with other digits. Here such a number
// is a binary value, a type that no JSON document has, holding the number's characters.
[[nodiscard]] nlohmann::json parse_exact_json(std::string_view text);

// As parse_exact_json; what follows the first complete object or array is ignored.
[[nodiscard]] nlohmann::json parse_first_exact_json(std::string_view text);

// As pretty_json, for the documents of parse_exact_json.
std::string pretty_exact_json(const nlohmann::json& document);
