#include "wallet_bridge/loaded_wallet.h"

#include "platform/files.h"
#include "wallet/lock_record.h"
#include "wallet_bridge/house_labels.h"
#include "wallet_bridge/shared_files.h"

#include <utility>

namespace {

std::string path_of(const std::string& wallet_id)
{
    return wallet_id.empty() ? older_wallet_path() : wallet_file_path(wallet_id);
}

bool has_seal(const std::string& path)
{
    return file_status(seal_path(path)) == FileStatus::exists;
}

}  // namespace

std::string wallet_path()
{
    return path_of(bound_wallet_id());
}

bool is_wallet_locked()
{
    const std::string path = wallet_path();
    return has_seal(path) || is_lock_record(read_file(path).value_or(""));
}

bool load_wallet(HeldWallet& held)
{
    return load_wallet(held, bound_wallet_id());
}

bool load_wallet(HeldWallet& held, const std::string& wallet_id)
{
    std::optional<Wallet> before = std::exchange(held->wallet, std::nullopt);
    forget_wallet(held);
    const std::string path = path_of(wallet_id);
    if (has_seal(path)) return false;
    auto text = read_file(path);
    if (!text) return false;
    held->wallet = read_wallet(SecretText(std::move(*text)), std::move(before));
    held->id = wallet_id;
    held->path = path;
    if (!held->wallet) return false;

    const WalletKeys& keys = held->wallet->keys;
    if (!keys.identity_key.empty() && !keys.ordinals_address.empty())
        set_house_ord_address(keys.identity_key, keys.ordinals_address);
    return true;
}

bool save_wallet(HeldWallet& held)
{
    if (!held->wallet) return false;
    SecretText text = wallet_text(*held->wallet);
    if (text.empty()) return false;
    if (read_file(held->path) == text.text()) return true;

    // What the wallet application has saved, sealed or deleted since the load is not undone: the next load sees it.
    const bool is_written = rewrite_existing(held->path, text.text(), [&held](std::string_view current) {
        return current == held->wallet->source.text() && file_status(seal_path(held->path)) == FileStatus::missing;
    });
    if (is_written) set_source(*held->wallet, std::move(text));
    return is_written;
}

void forget_wallet(HeldWallet& held)
{
    *held = {};
}
