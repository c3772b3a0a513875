// The connected wallet: read from its file, written back to it, forgotten. Whoever loads, saves or forgets it shows by
// a HeldWallet that the wallet state is locked.
#pragma once

#include "wallet_bridge/wallet_state.h"

#include <string>

// The bound wallet's file, else the single wallet file of the older layout.
std::string wallet_path();

// Whether that file is locked: a seal file lies beside it, or it holds a lock record.
bool is_wallet_locked();

// Forgets the wallet that was loaded before, then reads the file and derives the keys. What it says as it did then is
// taken over from the wallet of before: the keys of the same phrase and counters, everything of the same bytes. Records
// the ordinals address with the house labels. False, with no wallet loaded, for a locked, missing or malformed file.
[[nodiscard]] bool load_wallet(HeldWallet& held);

// The same for a caller who has asked for bound_wallet_id() already.
[[nodiscard]] bool load_wallet(HeldWallet& held, const std::string& wallet_id);

// Rewrites the file that the loaded wallet was read from, in place; what this program does not know in it stays.
// Nothing is written, and false returned, when no wallet is loaded, when its document is not one that this program may
// rewrite (wallet_text), when the file cannot be written, when another program has it to itself, has changed or deleted
// it since it was loaded, or when a seal file lies beside it.
[[nodiscard]] bool save_wallet(HeldWallet& held);

// Wipes the loaded wallet's secrets and empties it.
void forget_wallet(HeldWallet& held);
