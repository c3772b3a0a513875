#include "wallet/wallet_items.h"

#include "text/json.h"

#include <limits>

namespace {

using nlohmann::json;

std::uint32_t counter_from(const json& element)
{
    constexpr auto kMost = std::numeric_limits<std::uint32_t>::max();
    if (!element.is_number_unsigned() || element.get<std::uint64_t>() > kMost) return 0;
    return element.get<std::uint32_t>();
}

}  // namespace

ReceiveCounters counters_from(const json& document)
{
    ReceiveCounters counters{};
    const auto list = document.find("recv");
    if (list == document.end() || !list->is_array()) return counters;
    for (std::size_t i = 0; i < counters.size() && i < list->size(); ++i)
        counters[i] = counter_from((*list)[i]);
    return counters;
}

std::uint32_t shown_from(const json& document, std::uint32_t most)
{
    const auto show = document.find("show");
    if (show == document.end() || !show->is_number()) return most;
    const auto count = show->get<double>();
    return count >= 0 && count < most ? static_cast<std::uint32_t>(count) : most;
}

void set_counters(json& document, const ReceiveCounters& counters)
{
    json& list = document["recv"];
    if (!list.is_array()) list = json::array();
    for (std::size_t i = 0; i < counters.size(); ++i) {
        if (i >= list.size()) {
            list.push_back(counters[i]);
        } else if (counter_from(list[i]) != counters[i]) {
            list[i] = counters[i];
        }
    }
}

namespace {

OrdinalItem ordinal_from(const json& object)
{
    OrdinalItem item;
    item.origin = text_member(object, "origin");
    item.txid = text_member(object, "txid");
    const auto vout = object.find("vout");
    if (vout != object.end() && vout->is_number_unsigned()) item.vout = vout->get<std::uint64_t>();
    item.type = text_member(object, "type");
    item.address = text_member(object, "address");
    item.name = text_member(object, "name");
    item.icon = text_member(object, "icon");
    item.amount = text_member(object, "amt");
    item.decimals = text_member(object, "dec");
    item.token_id = text_member(object, "token_id");
    const auto hidden = object.find("hidden");
    item.hidden = hidden != object.end() && *hidden == true;
    return item;
}

json object_of(const OrdinalItem& item)
{
    // Only the wallet application uses "created".
    json object{{"origin", item.origin}, {"txid", item.txid}, {"vout", item.vout}, {"created", false}};
    const auto add = [&object](const char* key, const std::string& text) {
        if (!text.empty()) object[key] = text;
    };
    add("type", item.type);
    add("address", item.address);
    add("name", item.name);
    add("icon", item.icon);
    add("amt", item.amount);
    add("dec", item.decimals);
    add("token_id", item.token_id);
    if (item.hidden) object["hidden"] = true;
    return object;
}

Contact contact_from(const json& object)
{
    return {.dest = text_member(object, "dest"), .note = text_member(object, "note")};
}

json object_of(const Contact& contact)
{
    return {{"dest", contact.dest}, {"note", contact.note}};
}

template <typename Item>
std::vector<Item> items_from(const json& document, const char* key, Item (*item_from)(const json&))
{
    std::vector<Item> items;
    const auto list = document.find(key);
    if (list == document.end() || !list->is_array()) return items;
    for (const json& element : *list)
        if (element.is_object()) items.push_back(item_from(element));
    return items;
}

template <typename Item>
json list_of(const std::vector<Item>& items)
{
    json list = json::array();
    for (const Item& item : items)
        list.push_back(object_of(item));
    return list;
}

bool holds_anything(const json& document, const char* key)
{
    const auto list = document.find(key);
    return list != document.end() && !(list->is_array() && list->empty());
}

}  // namespace

std::vector<OrdinalItem> ordinals_from(const json& document)
{
    return items_from<OrdinalItem>(document, "ord_owned", ordinal_from);
}

std::vector<Contact> contacts_from(const json& document)
{
    return items_from<Contact>(document, "contacts", contact_from);
}

void set_ordinals(json& document, const std::vector<OrdinalItem>& ordinals)
{
    if (holds_anything(document, "ord_owned")) return;
    document.erase("ord_owned");
    if (!ordinals.empty()) document["ord_owned"] = list_of(ordinals);
}

void set_contacts(json& document, const std::vector<Contact>& contacts)
{
    if (!holds_anything(document, "contacts")) document["contacts"] = list_of(contacts);
}
