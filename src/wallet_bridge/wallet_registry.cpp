#include "wallet_bridge/wallet_registry.h"

#include "platform/files.h"
#include "text/json.h"
#include "wallet_bridge/data_directory.h"
#include "wallet_bridge/registry_lock.h"

using nlohmann::json;

std::string registry_path()
{
    return data_directory() + "/wallets.json";
}

RegistryReading look_into_registry()
{
    RegistryReading registry{RegistryStatus::missing, {{"wallets", json::array()}}};
    const FileReading file = read_whole_file(registry_path());
    if (file.status == ReadStatus::missing) return registry;
    registry.status = RegistryStatus::unreadable;
    if (file.status == ReadStatus::unreadable) return registry;
    registry.status = RegistryStatus::sound;
    if (file.bytes.empty()) return registry;

    json document = parse_exact_json(file.bytes);
    const bool is_sound = document.is_object() && document.value("wallets", json::array()).is_array();
    if (!is_sound) registry.status = RegistryStatus::damaged;
    if (!document.is_object()) return registry;
    json& wallets = document["wallets"];
    if (!wallets.is_array()) wallets = json::array();
    registry.document = std::move(document);
    return registry;
}

json read_registry()
{
    return look_into_registry().document;
}

bool write_registry(const json& registry)
{
    const std::string path = registry_path();
    const std::string text = pretty_exact_json(registry);
    if (read_file(path) == text) return true;

    create_folders(data_directory());
    const std::string temporary = path + ".tmp";
    if (!write_file(temporary, text)) return false;
    if (replace_file(temporary, path)) return true;
    remove_file(temporary);
    return false;
}

std::vector<WalletEntry> list_wallets()
{
    const RegistryLock lock;
    const json registry = read_registry();
    std::vector<WalletEntry> entries;
    for (const json& wallet : registry["wallets"]) {
        WalletEntry entry{text_member(wallet, "id"), text_member(wallet, "name")};
        if (entry.id.empty()) continue;
        if (entry.name.empty()) entry.name = entry.id;
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::string wallet_display_name(const std::string& id)
{
    for (const WalletEntry& entry : list_wallets())
        if (entry.id == id) return entry.name;
    return id;
}

void set_registry_name_from_paymail(const std::string& id, const std::string& paymail)
{
    if (id.empty() || paymail.empty()) return;
    const RegistryLock lock;
    json registry = read_registry();
    for (json& wallet : registry["wallets"]) {
        if (text_member(wallet, "id") != id) continue;
        if (text_member(wallet, "name") == paymail) return;
        wallet["name"] = paymail;
        write_registry(registry);
        return;
    }
}
