#include "wallet_bridge/loaded_wallet.h"

#include "platform/files.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet/lock_record.h"
#include "wallet_bridge/house_labels.h"
#include "wallet_bridge/shared_files.h"

#include <utility>

namespace {

constexpr std::size_t kLongestSnapshotKey = 80;

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
    const std::optional<Wallet> before = std::exchange(held->wallet, std::nullopt);
    forget_wallet(held);
    const std::string path = path_of(wallet_id);
    if (has_seal(path)) return false;
    auto text = read_file(path);
    if (!text) return false;
    held->wallet = read_wallet(SecretText(std::move(*text)), before ? &*before : nullptr);
    held->id = wallet_id;
    held->path = path;
    if (!held->wallet) return false;

    const WalletKeys& keys = held->wallet->keys;
    if (!keys.identity_key.empty() && !keys.ordinals_address.empty())
        set_house_ord_address(keys.identity_key, keys.ordinals_address);
    held->spent_outpoints = read_spent_snapshot(spent_snapshot_key(wallet_id, keys.identity_key, keys.address));
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
    if (is_written) held->wallet->source = std::move(text);
    return is_written;
}

void forget_wallet(HeldWallet& held)
{
    *held = {};
}

std::string spent_snapshot_key(std::string_view wallet_id, std::string_view identity_key, std::string_view address)
{
    std::string key(!wallet_id.empty() ? wallet_id : !identity_key.empty() ? identity_key : address);
    for (char& c : key)
        if (!is_ascii_letter(c) && !is_ascii_digit(c)) c = '_';
    return key.empty() ? "wallet" : key.substr(0, kLongestSnapshotKey);
}

std::set<std::string> read_spent_snapshot(const std::string& key)
{
    const nlohmann::json snapshot = parse_json(read_file(spent_snapshot_path(key)).value_or(""));
    const auto outpoints = snapshot.is_object() ? snapshot.find("outpoints") : snapshot.end();
    std::set<std::string> spent;
    if (outpoints == snapshot.end() || !outpoints->is_array()) return spent;
    for (const nlohmann::json& outpoint : *outpoints)
        if (outpoint.is_string()) spent.insert(outpoint.get<std::string>());
    return spent;
}
