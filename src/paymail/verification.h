// Proves from outside, as a paying client would, that a published payname resolves to the connected wallet.
#pragma once

#include "wallet_bridge/wallet_identity.h"

#include <string>

struct Verification {
    bool is_kept = false;  // the name resolves to this wallet and stands among the kept names
    std::string message;   // the sentence for the user otherwise
};

// `published`: what the site was sent for the name, which the world must see and which is kept. The connected wallet is
// asked once whether it still is that. Blocks for as long as DNS and up to five HTTPS exchanges take; worker threads
// only.
Verification verify_and_keep(const std::string& payname, const PublicIdentity& published);
