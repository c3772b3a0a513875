#include "app/card_texts.h"

#include "paymail/kept_names.h"
#include "paymail/payname_rules.h"
#include "site/site_address.h"
#include "text/ascii.h"
#include "wallet_bridge/wallet_identity.h"

WalletCardTexts wallet_card_texts()
{
    const auto wallet = wallet_identity();
    if (!wallet) return {"Connect Vaultry", "Connect Vaultry", ""};
    const std::string names = names_of_wallet(wallet->public_key, wallet->address);
    return {wallet->house_paymail.empty() ? "No house paymail yet" : wallet->house_paymail, wallet->address,
            names.empty() ? "" : "Vaultry kept " + names};
}

std::string name_preview(std::string_view typed, std::string site)
{
    const std::string name = lower_ascii(typed);
    const SiteAddress address = normalise_site(site);
    const bool is_usable = is_valid_alias(name) && address.ok && address.host.find('.') != std::string::npos;
    return is_usable ? name + "@" + address.host : "name@your-site";
}

std::string name_for_field(const std::string& saved, const std::string& names_on_site)
{
    const std::size_t at = names_on_site.find('@');
    return at == std::string::npos ? saved : names_on_site.substr(0, at);
}
