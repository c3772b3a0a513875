// What a published payname needs of the connected wallet. Every query loads the bound wallet afresh and holds the
// wallet-state mutex for its whole run; any thread.
#pragma once

#include <optional>
#include <string>

struct WalletIdentity {
    std::string public_key;     // 66 hex digits, compressed
    std::string address;        // Base58Check
    std::string house_paymail;  // label@house-domain, or empty
};

bool wallet_ready();                          // a recovery-phrase wallet is bound and loads
std::optional<std::string> wallet_address();  // payment address
std::optional<std::string> identity_pubkey();
std::string wallet_paymail();  // house paymail, registered when need be; empty when there is none

// All three from one load: what those four say, unless wallet_ready() says no. The texts are empty where they have
// none.
std::optional<WalletIdentity> ready_wallet();

// After a connect: reloads the wallet, makes sure of its house paymail and announces it, records its picture.
void refresh_identity();
