// Property: naming a wallet changes that name and nothing else of the wallet list, which survives a write and a
// read; one that cannot be read is changed by no naming, and one that holds a wallet by no migration.
#include "wallet_bridge/wallet_list.h"

#include "fuzz/data_folder.h"
#include "fuzz/target.h"
#include "text/json.h"
#include "wallet_bridge/migration.h"

namespace {

using nlohmann::json;

constexpr char kFile[] = "wallets.json";
constexpr char kOlderFile[] = "corvane_vaultry.json";
constexpr char kNewName[] = "ann";

void check_names(const std::vector<WalletEntry>& entries)
{
    for (const WalletEntry& entry : entries) {
        require(!entry.id.empty() && !entry.name.empty(), "a wallet that is listed has an id and a name");
        require(!wallet_display_name(entry.id).empty(), "a wallet that is listed has a name to show");
    }
}

void check_naming(const std::string& id)
{
    json expected = read_registry(RegistryLock{});
    set_registry_name_from_paymail(id, kNewName);
    require(wallet_display_name(id) == kNewName, "the wallet has its new name");
    for (json& wallet : expected["wallets"]) {
        if (text_member(wallet, "id") != id) continue;
        wallet["name"] = kNewName;
        break;
    }
    require(read_registry(RegistryLock{}) == expected, "nothing but the name has changed");
    const FilesOnDisk before = files_on_disk();
    set_registry_name_from_paymail(id, kNewName);
    require(files_on_disk() == before, "the same name again changes nothing on the disk");
}

void check_migration(std::string_view bytes)
{
    empty_data_folder();
    put_file(kFile, bytes);
    put_file(kOlderFile, "{}");
    json expected = read_registry(RegistryLock{});
    const FilesOnDisk before = files_on_disk();
    migrate_single_wallet();
    if (!expected["wallets"].empty()) {
        require(files_on_disk() == before, "a list that holds a wallet is not migrated into");
        return;
    }
    const auto entries = list_wallets();
    require(entries.size() == 1 && entries[0].name == "Wallet 1", "the older wallet is the first of the list");
    require(files_on_disk().contains("wallets/" + entries[0].id + "/wallet.json"), "its file has moved");
    json after = read_registry(RegistryLock{});
    after.erase("wallets");
    after.erase("active");
    expected.erase("wallets");
    expected.erase("active");
    require(after == expected, "migration changes no other member");
}

void check(std::string_view bytes)
{
    empty_data_folder();
    put_file(kFile, bytes);
    const auto entries = list_wallets();
    check_names(entries);
    const std::string unknown = "no such wallet";
    require(wallet_display_name(unknown) == unknown || !entries.empty(), "an unknown wallet shows its id");
    set_registry_name_from_paymail("", kNewName);
    require(files_on_disk().at(kFile) == bytes, "reading changes nothing on the disk");
    if (entries.empty()) {
        set_registry_name_from_paymail("1", kNewName);
        require(files_on_disk().at(kFile) == bytes, "a list without wallets is not written");
    } else {
        check_naming(entries.back().id);
    }
    check_migration(bytes);
}

const FuzzTarget target("wallet_list", check);

}  // namespace
