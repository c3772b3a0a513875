#include "wallet_bridge/spent_snapshot.h"

#include "platform/files.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet_bridge/shared_files.h"

namespace {

constexpr std::size_t kLongestSnapshotKey = 80;

}  // namespace

std::set<std::string> spent_outpoints(HeldWallet& held)
{
    if (!held->wallet) return {};
    const WalletKeys& keys = held->wallet->keys;
    return read_spent_snapshot(spent_snapshot_key(held->id, keys.identity_key, keys.address));
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
