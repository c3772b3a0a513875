#include "text/json.h"

namespace {

using nlohmann::json;

// Where the first object or array ends, judged by its brackets alone: whether they match is the parser's business. The
// end of the text when there is none or it is not closed; nothing when it is nested too deeply.
std::optional<std::size_t> end_of_first(std::string_view text)
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
            if (++depth > kDeepestJson) return std::nullopt;
        } else if (c == '}' || c == ']') {
            if (--depth <= 0) return i + 1;
        }
    }
    return text.size();
}

json discarded()
{
    return json(json::value_t::discarded);
}

}  // namespace

std::optional<std::string_view> first_of_json(std::string_view text)
{
    const auto end = end_of_first(text);
    return end ? std::optional(text.substr(0, *end)) : std::nullopt;
}

json parse_json(std::string_view text)
{
    if (!end_of_first(text)) return discarded();
    return json::parse(text.begin(), text.end(), nullptr, false);
}

json parse_first_json(std::string_view text)
{
    const auto first = first_of_json(text);
    if (!first) return discarded();
    // Not from a stream, although that stops by itself: streams bring every locale's rules into the executable.
    return json::parse(first->begin(), first->end(), nullptr, false);
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
