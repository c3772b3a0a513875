// All that this process remembers about its wallet, and of the files about it, from one question to the next: the one
// owner of it.
#pragma once

#include "wallet/wallet_document.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/guarded.h"
#include "wallet_bridge/house_labels_file.h"
#include "wallet_bridge/wallet_events.h"
#include "wallet_bridge/wallet_list.h"

#include <optional>
#include <string>

// The connected wallet as it was last read from its file.
struct LoadedWallet {
    std::optional<Wallet> wallet;  // empty: none is loaded
    std::string id;                // in the wallet list; empty for the older single wallet file
    std::string path;              // the file that was read
};

// The proof that the wallet state is locked, and the way to the loaded wallet. Whoever has one hands it on to what
// works on the loaded wallet, and calls none of the queries that lock the state themselves.
using HeldWallet = Guarded<LoadedWallet>::Held;

struct EventSinks {
    TextSink event;
    TextSink log;
};

struct WalletState {
    Guarded<LoadedWallet> wallet;            // held for the whole of a query; the first lock of docs/architecture.md
    Guarded<KnownHouseLabels> house_labels;  // held from the file's reading to its writing
    Guarded<WalletBinding> binding;          // never held while a file is read or written
    Guarded<ListedName> listed_name;         // never held while a file is read or written
    Guarded<EventSinks> sinks;               // never held while a sink runs
};

// Never destroyed: a worker may be in it when the process ends.
WalletState& wallet_state();

// Locks the wallet state; waits without a time limit. Any thread.
[[nodiscard]] HeldWallet hold_wallet();

// Forgets what is known of the house labels and the wallet list.
void forget_known_files();
