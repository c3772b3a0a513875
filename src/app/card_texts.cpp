#include "app/card_texts.h"

#include "paymail/kept_names.h"
#include "paymail/payname_rules.h"
#include "settings/settings_store.h"
#include "site/site_address.h"
#include "text/ascii.h"
#include "wallet_bridge/wallet_identity.h"

namespace {

std::string kept_names_text(const std::vector<std::string>& names, const MarkedNames& marked)
{
    std::vector<std::string> shown;
    for (const std::string& name : names)
        if (marked.contains(name)) shown.push_back(name + " (pays somebody else)");
    for (const std::string& name : names)
        if (!marked.contains(name)) shown.push_back(name);
    return shown.empty() ? "" : "Vaultry kept " + joined(shown);
}

}  // namespace

void mark_names(const std::vector<LookedAtName>& seen, MarkedNames& marked)
{
    for (const LookedAtName& name : seen) {
        if (pays_somebody_else(name.state)) marked.insert(name.paymail);
        if (name.state == NameState::pays_wallet) marked.erase(name.paymail);
    }
}

WalletCardTexts wallet_card_texts(const MarkedNames& marked)
{
    const auto wallet = wallet_identity();
    if (!wallet) return {"Connect Vaultry", "Connect Vaultry", ""};
    return {wallet->house_paymail.empty() ? "No house paymail yet" : wallet->house_paymail, wallet->address,
            kept_names_text(names_of_wallet(*wallet), marked)};
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

std::string name_for_field()
{
    return name_for_field(saved_name(), names_of_this_wallet());
}

CardTexts card_texts()
{
    return {name_for_field(), wallet_card_texts()};
}
