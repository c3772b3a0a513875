#include "wallet_bridge/wallet_list.h"

#include "platform/file_lock.h"
#include "platform/files.h"
#include "text/json.h"
#include "wallet_bridge/shared_files.h"
#include "wallet_bridge/wallet_state.h"

#include <cstdint>
#include <mutex>
#include <optional>

using nlohmann::json;

namespace {

struct ListTurns {
    std::recursive_mutex mutex;
    std::uint32_t depth = 0;       // how many guards of the thread that holds the mutex are alive
    std::optional<FileLock> file;  // held by the outermost of them
};

ListTurns& list_turns()
{
    static auto* const turns = new ListTurns;  // never destroyed: a worker may hold it when the process ends
    return *turns;
}

}  // namespace

RegistryLock::RegistryLock()
{
    ListTurns& turns = list_turns();
    turns.mutex.lock();
    if (++turns.depth > 1) return;
    turns.file.emplace(wallet_list_lock_path());
    if (turns.file->is_held()) return;
    create_folders(data_directory());  // seldom missing: only asked for when it is
    turns.file.emplace(wallet_list_lock_path());
}

RegistryLock::~RegistryLock()
{
    ListTurns& turns = list_turns();
    if (--turns.depth == 0) turns.file.reset();
    turns.mutex.unlock();
}

WalletListReading look_into_wallet_list(const RegistryLock& /*lock*/)
{
    WalletListReading list{WalletListStatus::missing, {{"wallets", json::array()}}};
    const FileReading file = read_whole_file(wallet_list_path());
    if (file.status == ReadStatus::missing) return list;
    list.status = WalletListStatus::unreadable;
    if (file.status == ReadStatus::unreadable) return list;
    list.status = WalletListStatus::sound;
    if (file.bytes.empty()) return list;

    json document = parse_exact_json(file.bytes);
    const bool is_sound = document.is_object() && document.value("wallets", json::array()).is_array();
    if (!is_sound) list.status = WalletListStatus::damaged;
    if (!document.is_object()) return list;
    json& wallets = document["wallets"];
    if (!wallets.is_array()) wallets = json::array();
    list.document = std::move(document);
    return list;
}

json read_registry(const RegistryLock& lock)
{
    return look_into_wallet_list(lock).document;
}

bool write_registry(const RegistryLock& /*lock*/, const json& list)
{
    const std::string path = wallet_list_path();
    const std::string text = pretty_exact_json(list);
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
    const json list = read_registry(lock);
    std::vector<WalletEntry> entries;
    for (const json& wallet : list["wallets"]) {
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
    const FileStamp now = file_stamp(wallet_list_path());
    const ListedName listed = wallet_state().listed_name.copy();
    if (listed.id == id && listed.name == paymail && is_unchanged(listed.list, now)) return;

    const RegistryLock lock;
    json list = read_registry(lock);
    for (json& wallet : list["wallets"]) {
        if (text_member(wallet, "id") != id) continue;
        if (text_member(wallet, "name") == paymail) {
            wallet_state().listed_name.set({now, id, paymail});
            return;
        }
        wallet["name"] = paymail;
        static_cast<void>(write_registry(lock, list));  // the next query of the identity tries again
        return;
    }
}
