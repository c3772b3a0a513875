// The standard library converts what is valid. What is not is replaced first: the JSON library does so with the same
// number of U+FFFD as Windows, one for the longest beginning of a character.
#include "platform/text_conversion.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>

namespace {

std::string valid_utf8(std::string_view bytes)
{
    using Json = nlohmann::json;
    return Json::parse(Json(bytes).dump(-1, ' ', false, Json::error_handler_t::replace)).get<std::string>();
}

// Half of a surrogate pair included: a wide character holds a whole code point here.
bool is_not_a_character(char32_t code)
{
    return code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF);
}

}  // namespace

std::wstring widen(std::string_view utf8)
{
    const std::string valid = valid_utf8(utf8);
    const std::u32string codes = std::filesystem::path(std::u8string(valid.begin(), valid.end())).u32string();
    return {codes.begin(), codes.end()};
}

std::string narrow(std::wstring_view wide)
{
    std::u32string codes(wide.begin(), wide.end());
    std::ranges::replace_if(codes, is_not_a_character, U'\xFFFD');
    const std::u8string utf8 = std::filesystem::path(codes).u8string();
    return {utf8.begin(), utf8.end()};
}
