#include "wallet_bridge/house_registry.h"

#include "build_values.h"
#include "platform/files.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet_bridge/data_directory.h"

#include <limits>
#include <mutex>

namespace {

using nlohmann::json;

constexpr char kOlderPath[] = "userinfo/corvane_paymail.json";  // in the current directory

std::mutex& registry_mutex()
{
    static auto* const mutex = new std::mutex;  // never destroyed: a worker may hold it when the process ends
    return *mutex;
}

std::string registry_path()
{
    return data_directory() + "/corvane_paymail.json";
}

json object_of(const std::string& text)
{
    json document = parse_exact_json(text);
    return document.is_object() ? document : json::object();
}

// The registry while an operation works on it.
struct Registry {
    ReadStatus status = ReadStatus::unreadable;
    json on_disk;  // as the file has it, when it was read
    json document;
};

// False when the file cannot be written, and when it is there but could not be read: writing would lose what it holds.
// What the file says already is not written again.
bool save(const Registry& registry)
{
    if (registry.status == ReadStatus::unreadable) return false;
    if (registry.on_disk == registry.document) return true;
    create_folders(data_directory());
    return rewrite_in_place(registry_path(), pretty_exact_json(registry.document));
}

Registry load()
{
    FileReading file = read_whole_file(registry_path());
    Registry registry{file.status, json::object(), json::object()};
    if (file.status == ReadStatus::read) {
        registry.on_disk = registry.document = object_of(file.bytes);
    } else if (file.status == ReadStatus::missing) {
        const FileReading older = read_whole_file(kOlderPath);
        if (older.status == ReadStatus::unreadable) registry.status = ReadStatus::unreadable;
        registry.document = object_of(older.bytes);
        if (save(registry)) registry.on_disk = registry.document;
    }
    return registry;
}

// The member as an object, made when it is absent and put in the place of anything else.
json& object_member(json& parent, const char* key)
{
    json& member = parent[key];
    if (!member.is_object()) member = json::object();
    return member;
}

bool is_held_by(const json& row, const std::string& lower_key)
{
    return lower_ascii(text_member(row, "pubkey")) == lower_key;
}

std::size_t quota(const json& registry)
{
    const std::string role = lower_ascii(text_member(registry, "host_role"));
    if (role == "architect") return std::numeric_limits<std::size_t>::max();
    return role == "dev" ? 20 : 10;
}

std::size_t count_labels(const json& names, const std::string& lower_key)
{
    std::size_t count = 0;
    for (const json& row : names)
        count += is_held_by(row, lower_key) ? 1 : 0;
    return count;
}

// Does `change` to every row of the identity.
template <typename Change>
void change_rows(json& registry, const std::string& lower_key, Change change)
{
    const auto names = registry.find("names");
    if (names == registry.end() || !names->is_object()) return;
    for (json& row : *names)
        if (is_held_by(row, lower_key)) change(row);
}

}  // namespace

std::string house_label_of(const std::string& public_key)
{
    const std::string key = lower_ascii(public_key);
    if (key.empty()) return {};
    const std::scoped_lock lock(registry_mutex());
    json registry = load().document;
    const json& names = object_member(registry, "names");
    const auto own = names.find(house_label(text_member(registry, "self")));
    if (own != names.end() && is_held_by(*own, key)) return own.key();
    for (const auto& [label, row] : names.items())
        if (is_held_by(row, key)) return label;
    return {};
}

std::string register_house_label(std::string_view name, const std::string& public_key, const HouseAddresses& addresses)
{
    const std::string label = house_label(name);
    if (label.empty()) return "need a paymail name (letters, numbers, _ - .)";
    const std::string key = lower_ascii(public_key);
    if (key.empty()) return "no Vaultry identity pubkey";

    const std::scoped_lock lock(registry_mutex());
    Registry registry = load();
    if (registry.status == ReadStatus::unreadable) return kHouseRegistryUnreadable;
    json& names = object_member(registry.document, "names");
    const auto held = names.find(label);
    if (held != names.end() && !is_held_by(*held, key)) return label + "@" + kHouseDomain + " is already taken";
    if (held == names.end()) {
        const std::size_t most = quota(registry.document);
        if (count_labels(names, key) >= most)
            return "paymail quota reached (" + std::to_string(most) + " free labels per identity)";
    }

    json& row = object_member(names, label.c_str());
    row["pubkey"] = key;
    if (!addresses.payment.empty()) row["address"] = addresses.payment;
    if (!addresses.ordinals.empty()) row["ordAddress"] = addresses.ordinals;
    registry.document["self"] = label;
    return save(registry) ? "" : kHouseRegistryUnwritable;
}

std::string set_house_avatar(const std::string& public_key, const std::string& picture)
{
    const std::string key = lower_ascii(public_key);
    if (key.empty()) return "no identity pubkey";
    const std::scoped_lock lock(registry_mutex());
    Registry registry = load();
    json& document = registry.document;
    if (picture.empty()) {
        const auto avatars = document.find("avatars");
        if (avatars != document.end() && avatars->is_object()) avatars->erase(key);
        change_rows(document, key, [](json& row) { row.erase("avatar"); });
    } else {
        object_member(document, "avatars")[key] = picture;
        change_rows(document, key, [&picture](json& row) { row["avatar"] = picture; });
    }
    return save(registry) ? "" : kHouseRegistryUnwritable;
}

void set_house_ord_address(const std::string& public_key, const std::string& ordinals_address)
{
    const std::string key = lower_ascii(public_key);
    if (key.empty() || ordinals_address.empty()) return;
    const std::scoped_lock lock(registry_mutex());
    Registry registry = load();
    change_rows(registry.document, key, [&ordinals_address](json& row) { row["ordAddress"] = ordinals_address; });
    save(registry);
}
