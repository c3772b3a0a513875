#include "kit/bound_wallet.h"

#include "wallet_bridge/binding.h"
#include "wallet_bridge/wallet_identity.h"

BoundWallet::BoundWallet()
{
    folder.write("wallets.json", R"({"active":"1","wallets":[{"id":"1","name":"Main"}]})");
    folder.write(kBoundWalletFile, text);
    bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
    key = identity_pubkey().value_or("no wallet");
    address = wallet_address().value_or("no wallet");
}
