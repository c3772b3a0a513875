// Proves that a published payname resolves to the connected wallet, by the requests of a paying wallet.
#pragma once

#include <string>

struct Verification {
    bool is_kept = false;  // the name resolves to this wallet and is in the payname registry
    std::string message;   // otherwise the sentence for the user
};

// Blocks on DNS and up to five HTTPS exchanges; worker threads only.
[[nodiscard]] Verification verify_and_keep(const std::string& payname);
