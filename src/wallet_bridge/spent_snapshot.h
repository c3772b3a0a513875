// The list of ordinal items that the wallet application knows to be spent, one file per wallet in "/ord_snap".
#pragma once

#include <set>
#include <string>
#include <string_view>

// From the first of the three that is not empty: letters and digits as they are, everything else "_", the first 80
// characters. Not the rule of the bind record's name, on purpose.
std::string spent_snapshot_key(std::string_view wallet_id, std::string_view identity_key, std::string_view address);

// Outpoints as plain text; empty when the file cannot be read or is malformed.
std::set<std::string> read_spent_snapshot(const std::string& key);
