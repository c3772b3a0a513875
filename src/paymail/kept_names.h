// The kept names: the paynames that were verified for wallets on this PC, in "payname.json". Read afresh by every
// operation; the busy guard keeps flows apart.
#pragma once

#include "wallet_bridge/wallet_identity.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

// One kept payname, as a row of the file.
struct PaynameRecord {
    std::string paymail;  // lower case
    std::string pubkey;   // 66 lower-case hex digits
    std::string address;  // Base58Check
};

nlohmann::json load_paynames();  // array of rows, possibly empty, as of parse_exact_json; never fails
[[nodiscard]] bool save_paynames(const nlohmann::json& rows);  // false when the file cannot be written
[[nodiscard]] bool keep_payname(const PaynameRecord& record);  // adds it, or updates its row in place
void remove_payname(const std::string& paymail);               // deletes the file when the last row goes

// The names of the wallet with this identity key and payment address, in the order of the file; none when its key or
// address is malformed.
std::vector<std::string> names_of_wallet(const PublicIdentity& wallet);

// Those of the connected wallet, joined by ", "; empty when none is connected.
std::string names_of_this_wallet();
