#include "wallet_bridge/spent_snapshot.h"

#include "platform/files.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet_bridge/data_directory.h"

namespace {

constexpr std::size_t kLongestKey = 80;

}  // namespace

std::string spent_snapshot_key(std::string_view wallet_id, std::string_view identity_key, std::string_view address)
{
    std::string key(!wallet_id.empty() ? wallet_id : !identity_key.empty() ? identity_key : address);
    for (char& c : key)
        if (!is_ascii_letter(c) && !is_ascii_digit(c)) c = '_';
    return key.empty() ? "wallet" : key.substr(0, kLongestKey);
}

std::set<std::string> read_spent_snapshot(const std::string& key)
{
    const auto text = read_file(data_directory() + "/ord_snap/" + key + "_spent.json");
    const nlohmann::json snapshot = parse_json(text.value_or(""));
    const auto outpoints = snapshot.is_object() ? snapshot.find("outpoints") : snapshot.end();
    std::set<std::string> spent;
    if (outpoints == snapshot.end() || !outpoints->is_array()) return spent;
    for (const nlohmann::json& outpoint : *outpoints)
        if (outpoint.is_string()) spent.insert(outpoint.get<std::string>());
    return spent;
}
