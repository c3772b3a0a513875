#include "app/wallet_card_texts.h"

#include "paymail/kept_names.h"
#include "wallet_bridge/wallet_identity.h"

WalletCardTexts wallet_card_texts()
{
    const auto wallet = wallet_identity();
    if (!wallet) return {"Connect Vaultry", "Connect Vaultry", ""};
    const std::string names = names_of_wallet(wallet->public_key, wallet->address);
    return {wallet->house_paymail.empty() ? "No house paymail yet" : wallet->house_paymail, wallet->address,
            names.empty() ? "" : "Vaultry kept " + names};
}
