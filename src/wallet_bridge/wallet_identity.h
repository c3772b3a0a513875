// What a published payname needs of the connected wallet. Every query loads the bound wallet afresh and locks the
// wallet state for its whole run; any thread that holds no HeldWallet. What belongs together is asked for in one query:
// between two of them the wallet application may change the wallet.
#pragma once

#include "wallet_bridge/wallet_state.h"

#include <optional>
#include <string>

// What the world is shown of a wallet. A text is empty where there is none.
struct PublicIdentity {
    std::string public_key;  // 66 hex digits, compressed
    std::string address;     // Base58Check

    // Whether a payname can be published for it.
    bool is_complete() const { return public_key.size() == 66 && address.size() >= 26; }

    bool operator==(const PublicIdentity&) const = default;
};

struct WalletIdentity : PublicIdentity {
    std::string house_paymail;  // label@house-domain, or empty
};

bool wallet_ready();                          // a recovery-phrase wallet is bound and loads
std::optional<std::string> wallet_address();  // payment address
std::optional<std::string> identity_pubkey();
std::string wallet_paymail();  // house paymail, registered when need be; empty when there is none

// Of one and the same wallet: what identity_pubkey() and wallet_address() say, from one load.
PublicIdentity public_identity();

// wallet_paymail() too, from one load; nothing while wallet_ready() says no.
std::optional<WalletIdentity> wallet_identity();

// After a connect: reloads the wallet, makes sure of its house paymail and announces it, records its picture.
void refresh_identity();

// The same of the wallet that was just loaded. Returns the house paymail, to announce once the state is unlocked.
std::string refresh_identity(HeldWallet& held);

// Emits the event "paymail"; nothing happens for an empty one. Not while the wallet state is locked.
void announce_house_paymail(const std::string& house_paymail);
