// Proves from outside, as a paying client would, that a published payname resolves to the connected wallet.
#pragma once

#include <string>

struct Verification {
    bool is_kept = false;  // the name resolves to this wallet and stands in the payname registry
    std::string message;   // the sentence for the user otherwise
};

// Blocks for as long as DNS and up to five HTTPS exchanges take; worker threads only.
[[nodiscard]] Verification verify_and_keep(const std::string& payname);
