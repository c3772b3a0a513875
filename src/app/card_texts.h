// What the two cards of the main window say, before any control says it: the wallet card of the connected wallet, the
// name card of the name.
#pragma once

#include <string>
#include <string_view>

struct WalletCardTexts {
    std::string house_paymail;
    std::string payment_address;
    std::string kept_names;
};

// Asks for the connected wallet and its names, both afresh from their files.
WalletCardTexts wallet_card_texts();

// The payname of `typed` (trimmed text of the name field) on the site of the settings, or "name@your-site" when either
// of them is not usable.
std::string name_preview(std::string_view typed, std::string site);

// The name to put into the field: the first name of `names_on_site` (paynames joined by ", "), because a published
// name wins over a saved one, or else `saved`.
std::string name_for_field(const std::string& saved, const std::string& names_on_site);
