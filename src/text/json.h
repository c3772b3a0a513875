// Reading and writing JSON documents that others wrote: never throws, refuses what is nested so deeply that a
// recursive walk over it could exhaust the stack, and never fails to write because of bad UTF-8.
#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>

inline constexpr int kDeepestJson = 200;  // levels of objects and arrays

// The text as far as its first object or array goes: all of it when there is none or it is not closed. Nothing when it
// is nested too deeply.
std::optional<std::string_view> first_of_json(std::string_view text);

// The document, or a value whose is_discarded() is true when the text is no JSON or is nested too deeply.
nlohmann::json parse_json(std::string_view text);

// As parse_json, but text after the first complete object or array is not looked at.
nlohmann::json parse_first_json(std::string_view text);

// The member when `object` is an object that has it as a text; otherwise empty.
std::string text_member(const nlohmann::json& object, const char* key);

std::string compact_json(const nlohmann::json& document);
std::string pretty_json(const nlohmann::json& document);  // indent 2, keys in byte-wise order
