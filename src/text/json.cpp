#include "text/json.h"

#include <utility>
#include <vector>

namespace {

using nlohmann::json;

// Offset behind the first object or array, found by counting brackets outside strings; the parser checks that they
// match. text.size() when there is none or it is not closed; empty when it is nested deeper than kDeepestJson.
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

namespace {

class TreeBuilder : public json::json_sax_t {
public:
    json take_tree() { return std::move(m_root); }

    bool null() override { return add(json()); }
    bool boolean(bool value) override { return add(value); }
    bool number_integer(json::number_integer_t value) override
    {
        // A number without a minus sign arrives as unsigned, so this zero was "-0".
        return value == 0 ? add_number("-0") : add(value);
    }
    bool number_unsigned(json::number_unsigned_t value) override { return add(value); }
    bool number_float(json::number_float_t, const std::string& text) override { return add_number(text); }
    bool string(std::string& value) override { return add(value); }
    bool binary(json::binary_t&) override { return false; }
    bool start_object(std::size_t) override { return open(json::object()); }
    bool key(std::string& name) override
    {
        m_key = name;
        return true;
    }
    bool end_object() override { return close(); }
    bool start_array(std::size_t) override { return open(json::array()); }
    bool end_array() override { return close(); }
    bool parse_error(std::size_t, const std::string&, const json::exception&) override { return false; }

private:
    json* place(json value)
    {
        if (m_open.empty()) return &(m_root = std::move(value));
        json& parent = *m_open.back();
        if (parent.is_object()) return &(parent[m_key] = std::move(value));
        parent.push_back(std::move(value));
        return &parent.back();
    }
    bool add(json value)
    {
        place(std::move(value));
        return true;
    }
    bool add_number(const std::string& text)
    {
        return add(json::binary(std::vector<std::uint8_t>(text.begin(), text.end())));
    }
    bool open(json value)
    {
        if (m_open.size() >= kDeepestJson) return false;
        m_open.push_back(place(std::move(value)));
        return true;
    }
    bool close()
    {
        m_open.pop_back();
        return true;
    }

    json m_root;
    std::vector<json*> m_open;  // from the root down to the container that is being read
    std::string m_key;
};

void write(const json& value, std::size_t indent, std::string& text);

void start_line(std::size_t indent, std::string& text)
{
    text += '\n';
    text.append(indent, ' ');
}

void write_members(const json& container, std::size_t indent, std::string& text)
{
    bool is_first = true;
    for (const auto& member : container.items()) {
        if (!is_first) text += ',';
        is_first = false;
        start_line(indent, text);
        if (container.is_object()) text += compact_json(member.key()) + ": ";
        write(member.value(), indent, text);
    }
}

void write(const json& value, std::size_t indent, std::string& text)
{
    constexpr std::size_t kStep = 2;
    if (value.is_binary()) {
        text.append(value.get_binary().begin(), value.get_binary().end());
    } else if (value.is_structured() && !value.empty()) {
        text += value.is_object() ? '{' : '[';
        write_members(value, indent + kStep, text);
        start_line(indent, text);
        text += value.is_object() ? '}' : ']';
    } else {
        text += compact_json(value);
    }
}

}  // namespace

json parse_exact_json(std::string_view text)
{
    // The library's SAX parser stops at a NUL byte. Depth is limited here over the whole text, as in parse_json.
    if (!first_of_json(text)) return json(json::value_t::discarded);
    TreeBuilder builder;
    if (!json::sax_parse(text.begin(), text.end(), &builder)) return json(json::value_t::discarded);
    return builder.take_tree();
}

json parse_first_exact_json(std::string_view text)
{
    // A stream would stop there itself, but iostreams add all of the locale code to the executable.
    const auto first = first_of_json(text);
    return first ? parse_exact_json(*first) : json(json::value_t::discarded);
}

std::string pretty_exact_json(const json& document)
{
    std::string text;
    write(document, 0, text);
    return text;
}
