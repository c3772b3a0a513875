#include "wallet_bridge/house_labels.h"

#include "build_values.h"
#include "platform/files.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet_bridge/shared_files.h"

#include <algorithm>
#include <limits>
#include <mutex>

namespace {

using nlohmann::json;

constexpr char kOlderPath[] = "userinfo/corvane_paymail.json";  // in the current directory

std::mutex& house_labels_mutex()
{
    static auto* const mutex = new std::mutex;  // never destroyed: a worker may hold it when the process ends
    return *mutex;
}

json object_of(const std::string& text)
{
    json document = parse_exact_json(text);
    return document.is_object() ? document : json::object();
}

// The file while an operation works on it: read when it is made, by whoever's turn it is, which lasts as long as it.
class LabelsFile {
public:
    LabelsFile() : m_turn(house_labels_mutex())
    {
        const FileReading file = read_whole_file(house_labels_path());
        m_status = file.status;
        if (file.status == ReadStatus::read) {
            m_on_disk = document = object_of(file.bytes);
        } else if (file.status == ReadStatus::missing) {
            const FileReading older = read_whole_file(kOlderPath);
            if (older.status == ReadStatus::unreadable) m_status = ReadStatus::unreadable;
            document = object_of(older.bytes);
            if (save()) m_on_disk = document;
        }
    }

    bool is_unreadable() const { return m_status == ReadStatus::unreadable; }

    // False when the file cannot be written, and when it is there but could not be read: writing would lose what it
    // holds. What the file says already is not written again.
    bool save() const
    {
        if (is_unreadable()) return false;
        if (m_on_disk == document) return true;
        create_folders(data_directory());
        return rewrite_in_place(house_labels_path(), pretty_exact_json(document));
    }

    json document = json::object();

private:
    std::scoped_lock<std::mutex> m_turn;
    ReadStatus m_status = ReadStatus::unreadable;
    json m_on_disk = json::object();  // as the file has it, when it was read
};

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

std::size_t quota(const json& document)
{
    const std::string role = lower_ascii(text_member(document, "host_role"));
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
void change_rows(json& document, const std::string& lower_key, Change change)
{
    const auto names = document.find("names");
    if (names == document.end() || !names->is_object()) return;
    for (json& row : *names)
        if (is_held_by(row, lower_key)) change(row);
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
    LabelsFile file;
    const json& names = object_member(file.document, "names");
    const auto own = names.find(house_label(text_member(file.document, "self")));
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

    LabelsFile file;
    if (file.is_unreadable()) return kHouseLabelsUnreadable;
    json& names = object_member(file.document, "names");
    const auto held = names.find(label);
    if (held != names.end() && !is_held_by(*held, key)) return label + "@" + kHouseDomain + " is already taken";
    if (held == names.end()) {
        const std::size_t most = quota(file.document);
        if (count_labels(names, key) >= most)
            return "paymail quota reached (" + std::to_string(most) + " free labels per identity)";
    }

    json& row = object_member(names, label.c_str());
    row["pubkey"] = key;
    if (!addresses.payment.empty()) row["address"] = addresses.payment;
    if (!addresses.ordinals.empty()) row["ordAddress"] = addresses.ordinals;
    file.document["self"] = label;
    return file.save() ? "" : kHouseLabelsUnwritable;
}

std::string set_house_avatar(const std::string& public_key, const std::string& picture)
{
    const std::string key = lower_ascii(public_key);
    if (key.empty()) return "no identity pubkey";
    LabelsFile file;
    json& document = file.document;
    if (picture.empty()) {
        const auto avatars = document.find("avatars");
        if (avatars != document.end() && avatars->is_object()) avatars->erase(key);
        change_rows(document, key, [](json& row) { row.erase("avatar"); });
    } else {
        object_member(document, "avatars")[key] = picture;
        change_rows(document, key, [&picture](json& row) { row["avatar"] = picture; });
    }
    return file.save() ? "" : kHouseLabelsUnwritable;
}

void set_house_ord_address(const std::string& public_key, const std::string& ordinals_address)
{
    const std::string key = lower_ascii(public_key);
    if (key.empty() || ordinals_address.empty()) return;
    LabelsFile file;
    change_rows(file.document, key, [&ordinals_address](json& row) { row["ordAddress"] = ordinals_address; });
    file.save();
}
