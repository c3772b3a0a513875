#include "text/json.h"

#include <sstream>

namespace {

using nlohmann::json;

// Counts brackets outside of texts, up to the end of the first value. Whether they match is the parser's business.
bool is_too_deep(std::string_view text)
{
    int depth = 0;
    bool in_text = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (in_text) {
            if (c == '\\') ++i;
            if (c == '"') in_text = false;
        } else if (c == '"') {
            in_text = true;
        } else if (c == '{' || c == '[') {
            if (++depth > kDeepestJson) return true;
        } else if (c == '}' || c == ']') {
            if (--depth <= 0) break;
        }
    }
    return false;
}

json discarded()
{
    return json(json::value_t::discarded);
}

}  // namespace

json parse_json(std::string_view text)
{
    if (is_too_deep(text)) return discarded();
    return json::parse(text.begin(), text.end(), nullptr, false);
}

json parse_first_json(std::string_view text)
{
    if (is_too_deep(text)) return discarded();
    std::istringstream stream{std::string(text)};
    try {
        json first;
        stream >> first;
        return first;
    } catch (const json::exception&) {
        return discarded();
    }
}

std::string text_member(const json& object, const char* key)
{
    if (!object.is_object()) return {};
    const auto member = object.find(key);
    return member != object.end() && member->is_string() ? member->get<std::string>() : std::string();
}

std::string compact_json(const json& document)
{
    return document.dump(-1, ' ', false, json::error_handler_t::replace);
}

std::string pretty_json(const json& document)
{
    return document.dump(2, ' ', false, json::error_handler_t::replace);
}
