// The connected wallet, as it was last read from its file: one for the process. Whoever calls anything here holds the
// wallet-state mutex.
#pragma once

#include "wallet/wallet_document.h"

#include <mutex>
#include <set>
#include <string>

std::recursive_mutex& wallet_state_mutex();

// The bound wallet's file, else the single wallet file of the older layout.
std::string wallet_path();

// Whether that file is locked: a seal file lies beside it, or it holds a lock record.
bool is_wallet_locked();

// Forgets the wallet that was loaded before, then reads the file and derives the keys; those of the wallet of before
// serve again when the file still gives the same phrase and counters. Records the ordinals address in the house
// registry. False, with no wallet loaded, for a locked, missing or malformed file.
bool load_wallet();

// The same for a caller who has asked for bound_wallet_id() already.
bool load_wallet(const std::string& wallet_id);

// Rewrites the file that the loaded wallet was read from, in place; what this program does not know in it stays.
// Nothing is written, and false returned, when no wallet is loaded, when its document is not one that this program may
// rewrite (wallet_text), when the file cannot be written, when another program has it to itself, has changed or deleted
// it since it was loaded, or when a seal file lies beside it.
bool save_wallet();

// Wipes the loaded wallet's secrets and empties it.
void forget_wallet();

// Null when none is loaded. Valid until the next load or forgetting.
Wallet* loaded_wallet();

// The ordinal items that are known to be spent, of the loaded wallet; outpoints as plain text.
const std::set<std::string>& spent_outpoints();
