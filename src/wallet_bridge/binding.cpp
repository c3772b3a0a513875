#include "wallet_bridge/binding.h"

#include "platform/files.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet_bridge/migration.h"
#include "wallet_bridge/shared_files.h"
#include "wallet_bridge/wallet_list.h"
#include "wallet_bridge/wallet_state.h"

namespace {

using nlohmann::json;

constexpr std::size_t kLongestKey = 96;

void remember(WalletBinding binding)
{
    wallet_state().binding.set(std::move(binding));
}

std::string recorded_wallet_id()
{
    return text_member(parse_json(read_file(bind_record_path()).value_or("")), "wallet_id");
}

// Remembers the binding, and whether the record says the same.
void record(WalletBinding binding)
{
    const json text = {{"app", binding.app}, {"instance", binding.instance}, {"wallet_id", binding.wallet_id}};
    const std::string path = bind_record_path();
    create_folders(parent_folder(path));
    binding.is_recorded = write_file(path, pretty_json(text)) || recorded_wallet_id() == binding.wallet_id;
    remember(std::move(binding));
}

// With two wallets or more only the user can choose, and does so in the wallet application.
std::string id_of_the_only_wallet(const RegistryLock& lock)
{
    const json list = read_registry(lock);
    const json& wallets = list["wallets"];
    return wallets.size() == 1 ? text_member(wallets[0], "id") : std::string();
}

}  // namespace

void bind_at_startup(const std::string& instance, const std::string& app)
{
    const RegistryLock lock;
    WalletBinding binding;
    binding.is_initialised = true;
    binding.app = app.empty() ? "App" : app;
    binding.instance = instance.empty() ? "." : instance;
    remember(binding);
    migrate_single_wallet();

    binding.wallet_id = recorded_wallet_id();
    if (binding.wallet_id.empty()) binding.wallet_id = id_of_the_only_wallet(lock);
    remember(binding);
    if (!binding.wallet_id.empty()) record(std::move(binding));
}

WalletBinding wallet_binding()
{
    return wallet_state().binding.copy();
}

std::string bound_wallet_id()
{
    const WalletBinding binding = wallet_binding();
    if (!binding.is_initialised || !binding.is_recorded) return binding.wallet_id;
    const std::string recorded = recorded_wallet_id();
    return recorded.empty() ? binding.wallet_id : recorded;
}

void bind_wallet(const std::string& wallet_id)
{
    WalletBinding binding = wallet_binding();
    if (!binding.is_initialised || wallet_id.empty()) return;
    binding.wallet_id = wallet_id;
    record(std::move(binding));
}

void unbind_wallet()
{
    WalletBinding binding = wallet_binding();
    if (!binding.is_initialised) return;
    const std::string path = bind_record_path();
    binding.is_recorded = remove_file(path) || file_status(path) == FileStatus::missing;
    binding.wallet_id.clear();
    remember(std::move(binding));
}

void forget_binding()
{
    remember({});
}

std::string bind_key(std::string_view instance)
{
    std::string key = lower_ascii(instance);
    for (char& c : key)
        if (!is_ascii_letter(c) && !is_ascii_digit(c)) c = '_';
    // The end tells two folders apart better than the drive and the user's name do.
    if (key.size() > kLongestKey) key.erase(0, key.size() - kLongestKey);
    return key.empty() ? "default" : key;
}

std::string bind_record_path()
{
    return bind_record_path_for(bind_key(wallet_binding().instance));
}
