#include "wallet_bridge/loaded_wallet.h"

#include "platform/files.h"
#include "wallet/lock_record.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/data_directory.h"
#include "wallet_bridge/house_registry.h"
#include "wallet_bridge/spent_snapshot.h"

#include <optional>
#include <utility>

namespace {

struct WalletState {
    std::recursive_mutex mutex;
    std::optional<Wallet> wallet;
    std::string path;  // where it was read
    std::set<std::string> spent_outpoints;
};

WalletState& wallet_state()
{
    static auto* const state = new WalletState;  // never destroyed: a worker may hold it when the process ends
    return *state;
}

std::string path_of(const std::string& wallet_id)
{
    return wallet_id.empty() ? data_directory() + "/corvane_vaultry.json" : wallet_file_path(wallet_id);
}

bool has_seal(const std::string& path)
{
    return file_status(path + ".seal") == FileStatus::exists;
}

}  // namespace

std::recursive_mutex& wallet_state_mutex()
{
    return wallet_state().mutex;
}

std::string wallet_path()
{
    return path_of(bound_wallet_id());
}

bool is_wallet_locked()
{
    const std::string path = wallet_path();
    return has_seal(path) || is_lock_record(read_file(path).value_or(""));
}

bool load_wallet()
{
    return load_wallet(bound_wallet_id());
}

bool load_wallet(const std::string& wallet_id)
{
    WalletState& state = wallet_state();
    const std::optional<Wallet> before = std::exchange(state.wallet, std::nullopt);
    forget_wallet();
    const std::string path = path_of(wallet_id);
    if (has_seal(path)) return false;
    auto text = read_file(path);
    if (!text) return false;
    state.wallet = read_wallet(SecretText(std::move(*text)), before ? &*before : nullptr);
    state.path = path;
    if (!state.wallet) return false;

    const WalletKeys& keys = state.wallet->keys;
    if (!keys.identity_key.empty() && !keys.ordinals_address.empty())
        set_house_ord_address(keys.identity_key, keys.ordinals_address);
    state.spent_outpoints = read_spent_snapshot(spent_snapshot_key(wallet_id, keys.identity_key, keys.address));
    return true;
}

bool save_wallet()
{
    WalletState& state = wallet_state();
    if (!state.wallet) return false;
    SecretText text = wallet_text(*state.wallet);
    if (text.empty()) return false;
    if (read_file(state.path) == text.text()) return true;

    // What the wallet application has saved, sealed or deleted since the load is not undone: the next load sees it.
    const bool is_written = rewrite_existing(state.path, text.text(), [&state](std::string_view current) {
        return current == state.wallet->source.text() && file_status(state.path + ".seal") == FileStatus::missing;
    });
    if (is_written) state.wallet->source = std::move(text);
    return is_written;
}

void forget_wallet()
{
    wallet_state().wallet.reset();
    wallet_state().spent_outpoints.clear();
}

Wallet* loaded_wallet()
{
    auto& wallet = wallet_state().wallet;
    return wallet ? &*wallet : nullptr;
}

const std::set<std::string>& spent_outpoints()
{
    return wallet_state().spent_outpoints;
}
