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
    SecretText source;           // the document that the wallet was read from: a rewrite keeps its unknown members
    std::string source_paymail;  // as the source has it
};

// The wallet in `text`, its keys derived. Empty for a malformed document, an invalid phrase or key, and a lock record,
// for which this program holds no key. `known` is a wallet that was read before and of which only the paymail has been
// changed since: its keys serve again when phrase and counters are the same, and all of it when `text` is its source.
[[nodiscard]] std::optional<Wallet> read_wallet(SecretText text, std::optional<Wallet> known = std::nullopt);

// The document of `wallet` to replace its source: known members set from the wallet; unknown ones and all array
// elements of the source unchanged, down to the digits of a number. Keys sorted, indent 2. Empty when the source is not
// an object, its format version is above 2 or a known member has another type than in this format: a newer wallet
// application gave it a meaning that this program does not know, so it must not rewrite it.
[[nodiscard]] SecretText wallet_text(const Wallet& wallet);

// Makes `text`, the document that wallet_text() gave for the wallet, its source.
void set_source(Wallet& wallet, SecretText text);
