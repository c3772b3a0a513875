#include "flows/publish.h"

#include "flows/change_refusal.h"
#include "flows/publish_reply.h"
#include "paymail/payname_rules.h"
#include "paymail/verification.h"
#include "platform/wallet_app.h"
#include "site/plugin_status.h"
#include "site/site_address.h"
#include "site/site_request.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet_bridge/wallet_identity.h"

namespace {

SecretText publish_body(const SiteSettings& settings, const SecretText& password, const WalletIdentity& wallet)
{
    return SecretText(compact_json({{"address", wallet.address},
                                    {"alias", settings.alias},
                                    {"house", wallet.house_paymail},
                                    {"login_pass", password.text()},
                                    {"login_user", settings.user},
                                    {"pubkey", lower_ascii(wallet.public_key)}}));
}

// The password is in clear for this one request.
HttpReply post_name(const SiteAddress& site, const SiteSettings& settings, const WalletIdentity& wallet)
{
    const SecretText password = settings.pass.in_clear();
    return site_request("POST", site.base + "/wp-json/brasslet/v1/name", publish_body(settings, password, wallet),
                        settings.user, password);
}

}  // namespace

std::wstring publish_sentence(const SiteSettings& settings)
{
    // The one load of the wallet for all that is sent: key, address and house paymail belong together.
    const auto wallet = wallet_identity();
    if (!wallet) return L"Connect a Vaultry wallet first.";
    if (!is_valid_alias(settings.alias)) return L"Type the name. Letters, numbers, and . _ + -";
    std::string typed_site = settings.site;
    const SiteAddress site = normalise_site(typed_site);
    if (!site.ok || site.host.find('.') == std::string::npos) return L"Add the site in settings. It needs https.";
    if (settings.user.empty() || !settings.pass.opens())
        return L"Add the WordPress user and application password in settings.";

    if (!wallet->is_complete()) return L"This Vaultry has no payment address yet.";

    if (plugin_on_site(site.base).plugin != SitePlugin::current) return kInstallCurrentPlugin;
    const HttpReply reply = post_name(site, settings, *wallet);
    std::wstring refusal = publish_refusal(reply);
    if (!refusal.empty()) return refusal;

    const std::string host = published_host(reply, site.host);
    const Verification verification = verify_and_keep(settings.alias + "@" + host, *wallet);
    if (verification.is_kept) notify_wallet_app();
    return kept_sentence(verification, settings.alias, host, reply);
}
