// The ordinal items of a wallet that are known to be spent, which the wallet application lists in a file beside the
// wallets. The file is read when somebody asks: nothing that is published needs it.
#pragma once

#include "wallet_bridge/wallet_state.h"

#include <set>
#include <string>
#include <string_view>

// Outpoints of the loaded wallet's spent items, as plain text; none when no wallet is loaded.
std::set<std::string> spent_outpoints(HeldWallet& held);

// Which of the wallet application's lists is a wallet's: from the first of the three that is not empty, letters and
// digits as they are, everything else "_", the first 80 characters. Unlike the name of the bind record, which keeps the
// end of a path, and small letters only.
std::string spent_snapshot_key(std::string_view wallet_id, std::string_view identity_key, std::string_view address);

// Outpoints as plain text; empty when the file cannot be read or is malformed.
std::set<std::string> read_spent_snapshot(const std::string& key);
