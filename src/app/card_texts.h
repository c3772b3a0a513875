// What the two cards of the main window say, before any control says it: the wallet card of the connected wallet, the
// name card of the name.
#pragma once

#include "flows/name_guard.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

struct WalletCardTexts {
    std::string house_paymail;
    std::string payment_address;
    std::string kept_names;
};

struct CardTexts {
    std::string name;  // for the name field; empty: as it is
    WalletCardTexts wallet;
};

// The kept names that were last seen to pay somebody else.
using MarkedNames = std::set<std::string>;

// What a look has found: marks the names that pay somebody else, and takes the mark from those that pay the wallet.
void mark_names(const std::vector<LookedAtName>& seen, MarkedNames& marked);

// Asks for the connected wallet and its names, both afresh from their files. Marked names come first, because the line
// is cut off at its end.
WalletCardTexts wallet_card_texts(const MarkedNames& marked = {});

// The payname of `typed` (trimmed text of the name field) on the site of the settings, or "name@your-site" when either
// of them is not usable.
std::string name_preview(std::string_view typed, std::string site);

// The name to put into the field: the first name of `names_on_site` (paynames joined by ", "), because a published
// name wins over a saved one, or else `saved`.
std::string name_for_field(const std::string& saved, const std::string& names_on_site);

// The same of the connected wallet and the settings file.
std::string name_for_field();

// Both cards, asked for afresh. Any thread.
CardTexts card_texts();
