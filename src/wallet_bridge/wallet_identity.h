// What a published payname needs of the connected wallet. Every query loads the bound wallet afresh and holds the
// wallet-state mutex for its whole run; any thread.
#pragma once

#include <optional>
#include <string>

// What the world is shown of a wallet. A text is empty where there is none.
struct PublicIdentity {
    std::string public_key;  // 66 hex digits, compressed
    std::string address;     // Base58Check

    bool operator==(const PublicIdentity&) const = default;
};

struct WalletIdentity {
    std::string public_key;     // 66 hex digits, compressed
    std::string address;        // Base58Check
    std::string house_paymail;  // label@house-domain, or empty
};

bool wallet_ready();                          // a recovery-phrase wallet is bound and loads
std::optional<std::string> wallet_address();  // payment address
std::optional<std::string> identity_pubkey();
std::string wallet_paymail();  // house paymail, registered when need be; empty when there is none

// Of one and the same wallet: what identity_pubkey() and wallet_address() say, from one load.
PublicIdentity public_identity();

// The house paymail too, from one load; nothing while wallet_ready() says no.
std::optional<WalletIdentity> ready_wallet();

// After a connect: reloads the wallet, makes sure of its house paymail and announces it, records its picture.
void refresh_identity();
