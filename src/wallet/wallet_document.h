// The wallet file's JSON document, in which the wallet application keeps one wallet, and the wallet read from it.
#pragma once

#include "text/secret.h"
#include "wallet/wallet_keys.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

using ReceiveCounters = std::array<std::uint32_t, 6>;  // the index is the account

struct OrdinalItem {
    std::string origin;
    std::string txid;
    std::uint64_t vout = 0;
    std::string type;
    std::string address;
    std::string name;
    std::string icon;
    std::string amount;
    std::string decimals;
    std::string token_id;
    bool hidden = false;
};

struct Contact {
    std::string dest;  // a paymail or an address to pay
    std::string note;
};

struct Wallet {
    bool has_phrase = false;
    SecretText phrase;
    bool backup_confirmed = false;
    ReceiveCounters receive_counters{};
    std::uint32_t shown = 0;  // never above receive_counters[1]
    std::string paymail;
    std::string picture;  // reference to the ordinal chosen as the wallet's picture ("ord_avatar")
    std::vector<OrdinalItem> ordinals;
    std::vector<Contact> contacts;
    WalletKeys keys;
    SecretText source;  // the text that this wallet was read from: a rewrite keeps what it does not know
};

// The wallet in `text`, its keys derived. Empty for anything malformed, a phrase that fails its check, a key that is no
// key, and a lock record, for which this program holds no key. The keys of `known`, a wallet that was read before, are
// taken over instead of derived again when they come from the same phrase and the same counters.
std::optional<Wallet> read_wallet(SecretText text, const Wallet* known = nullptr);

// The document of `wallet` to put in the place of its source: the members known here set from the wallet, all others
// and all array elements of the source kept as they were, down to the digits of a number. Keys sorted, indent 2. Empty
// when it cannot be made, and when the source is of a format version above 2 or gives a member that is known here
// another type than the format does: then a newer wallet application means something else by it, and it is not ours to
// rewrite.
SecretText wallet_text(const Wallet& wallet);
