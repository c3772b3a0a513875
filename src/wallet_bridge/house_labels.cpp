#include "wallet_bridge/house_labels.h"

#include "build_values.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet_bridge/house_labels_file.h"

#include <algorithm>
#include <limits>

namespace {

using nlohmann::json;

// The member as an object, made when it is absent and put in the place of anything else.
json& object_member(json& parent, const char* key)
{
    json& member = parent[key];
    if (!member.is_object()) member = json::object();
    return member;
}

// Below, `key` is the identity's public key in lower case.

bool is_held_by(const json& row, const std::string& key)
{
    return lower_ascii(text_member(row, "pubkey")) == key;
}

std::size_t quota(const json& document)
{
    const std::string role = lower_ascii(text_member(document, "host_role"));
    if (role == "architect") return std::numeric_limits<std::size_t>::max();
    return role == "dev" ? 20 : 10;
}

std::size_t count_labels(const json& names, const std::string& key)
{
    std::size_t count = 0;
    for (const json& row : names)
        count += is_held_by(row, key) ? 1 : 0;
    return count;
}

// Does `change` to every row of the identity.
template <typename Change>
void change_rows(json& document, const std::string& key, Change change)
{
    const auto names = document.find("names");
    if (names == document.end() || !names->is_object()) return;
    for (json& row : *names)
        if (is_held_by(row, key)) change(row);
}

// An empty object when the document has none.
const json& names_in(const json& document)
{
    static const auto* const none = new json(json::object());  // never destroyed: a worker may be here at the end
    const auto names = document.find("names");
    return names != document.end() && names->is_object() ? *names : *none;
}

std::string label_of(const json& document, const std::string& key)
{
    const json& names = names_in(document);
    const auto own = names.find(house_label(text_member(document, "self")));
    if (own != names.end() && is_held_by(*own, key)) return own.key();
    for (const auto& [label, row] : names.items())
        if (is_held_by(row, key)) return label;
    return {};
}

// Why the identity cannot have the label; empty when it can.
std::string refusal_of(const json& document, const std::string& label, const std::string& key)
{
    const json& names = names_in(document);
    const auto held = names.find(label);
    if (held != names.end() && !is_held_by(*held, key)) return label + "@" + kHouseDomain + " is already taken";
    const std::size_t most = quota(document);
    if (held != names.end() || count_labels(names, key) < most) return {};
    return "paymail quota reached (" + std::to_string(most) + " free labels per identity)";
}

void set_label(json& document, const std::string& label, const std::string& key, const HouseAddresses& addresses)
{
    json& row = object_member(object_member(document, "names"), label.c_str());
    row["pubkey"] = key;
    if (!addresses.payment.empty()) row["address"] = addresses.payment;
    if (!addresses.ordinals.empty()) row["ordAddress"] = addresses.ordinals;
    document["self"] = label;
}

void set_picture(json& document, const std::string& key, const std::string& picture)
{
    if (!picture.empty()) {
        object_member(document, "avatars")[key] = picture;
        change_rows(document, key, [&picture](json& row) { row["avatar"] = picture; });
        return;
    }
    const auto avatars = document.find("avatars");
    if (avatars != document.end() && avatars->is_object()) avatars->erase(key);
    change_rows(document, key, [](json& row) { row.erase("avatar"); });
}

}  // namespace

std::string bare_label(std::string_view name)
{
    name.remove_prefix(std::min(name.find_first_not_of("@$ "), name.size()));
    name = name.substr(0, name.find_last_not_of(" \r\n") + 1);
    return std::string(name.substr(0, name.find('@')));
}

std::string house_label(std::string_view name)
{
    std::string label = lower_ascii(bare_label(name));
    std::erase_if(label,
                  [](char c) { return !is_ascii_letter(c) && !is_ascii_digit(c) && c != '-' && c != '.' && c != '_'; });
    return label;
}

std::string house_label_of(const std::string& public_key)
{
    const std::string key = lower_ascii(public_key);
    if (key.empty()) return {};
    std::string label;
    static_cast<void>(change_house_labels([&](const json& document) {
        label = label_of(document, key);
        return false;
    }));
    return label;
}

std::string register_house_label(std::string_view name, const std::string& public_key, const HouseAddresses& addresses)
{
    const std::string label = house_label(name);
    if (label.empty()) return "need a paymail name (letters, numbers, _ - .)";
    const std::string key = lower_ascii(public_key);
    if (key.empty()) return "no Vaultry identity pubkey";

    std::string refusal;
    const LabelsChange change = change_house_labels([&](json& document) {
        refusal = refusal_of(document, label, key);
        if (refusal.empty()) set_label(document, label, key, addresses);
        return refusal.empty();
    });
    if (change == LabelsChange::unreadable) return kHouseLabelsUnreadable;
    return change == LabelsChange::unwritable ? kHouseLabelsUnwritable : refusal;
}

std::string set_house_avatar(const std::string& public_key, const std::string& picture)
{
    const std::string key = lower_ascii(public_key);
    if (key.empty()) return "no identity pubkey";
    const LabelsChange change = change_house_labels([&](json& document) {
        set_picture(document, key, picture);
        return true;
    });
    return change == LabelsChange::done ? "" : kHouseLabelsUnwritable;
}

void set_house_ord_address(const std::string& public_key, const std::string& ordinals_address)
{
    const std::string key = lower_ascii(public_key);
    if (key.empty() || ordinals_address.empty()) return;
    static_cast<void>(change_house_labels([&](json& document) {
        change_rows(document, key, [&ordinals_address](json& row) { row["ordAddress"] = ordinals_address; });
        return true;
    }));
}
