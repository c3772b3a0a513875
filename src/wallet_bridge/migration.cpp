#include "wallet_bridge/migration.h"

#include "platform/files.h"
#include "text/clock.h"
#include "wallet_bridge/data_directory.h"
#include "wallet_bridge/registry_lock.h"
#include "wallet_bridge/wallet_registry.h"

void migrate_single_wallet()
{
    const RegistryLock lock;
    const std::string old_file = data_directory() + "/corvane_vaultry.json";
    if (file_status(old_file) != FileStatus::exists || !is_registry_within_reach()) return;
    nlohmann::json registry = read_registry();
    if (!registry["wallets"].empty()) return;

    const std::string id = std::to_string(milliseconds_since_epoch());
    const std::string folder = data_directory() + "/wallets/" + id;
    const std::string new_file = folder + "/wallet.json";
    create_folders(folder);
    if (!rename_file(old_file, new_file) && copy_file(old_file, new_file)) remove_file(old_file);

    registry["wallets"].push_back({{"id", id}, {"name", "Wallet 1"}});
    registry["active"] = id;
    write_registry(registry);
}
