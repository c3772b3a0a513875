#include "wallet_bridge/wallet_registry.h"

#include "platform/files.h"
#include "text/exact_json.h"
#include "text/json.h"
#include "wallet_bridge/data_directory.h"
#include "wallet_bridge/registry_lock.h"

namespace {

using nlohmann::json;

std::string registry_path()
{
    return data_directory() + "/wallets.json";
}

}  // namespace

json read_registry()
{
    json registry = parse_exact_json(read_file(registry_path()).value_or(""));
    if (!registry.is_object()) registry = json::object();
    json& wallets = registry["wallets"];
    if (!wallets.is_array()) wallets = json::array();
    return registry;
}

bool is_registry_within_reach()
{
    return file_status(registry_path()) == FileStatus::missing || read_file(registry_path()).has_value();
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
