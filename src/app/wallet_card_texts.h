// What the wallet card says, before any control says it.
#pragma once

#include <string>

struct WalletCardTexts {
    std::string house_paymail;
    std::string payment_address;
    std::string kept_names;
};

// Asks for the connected wallet and its names, both afresh from their files.
WalletCardTexts wallet_card_texts();
