// Proves that a published payname resolves to the connected wallet, by the requests of a paying wallet.
#pragma once

#include "wallet_bridge/wallet_identity.h"

#include <string>

struct Verification {
    bool is_kept = false;  // the name resolves to this wallet and is among the kept names
    std::string message;   // otherwise the sentence for the user
};

// `published`: what the site was sent for the name, which the world must see and which is kept. The connected wallet is
// asked once whether it still is that. Blocks on DNS and up to five HTTPS exchanges; worker threads only.
[[nodiscard]] Verification verify_and_keep(const std::string& payname, const PublicIdentity& published);
