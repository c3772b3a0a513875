#include "flows/remove.h"

#include "flows/plugin_sentences.h"
#include "paymail/payname_registry.h"
#include "paymail/payname_rules.h"
#include "platform/text_conversion.h"
#include "platform/wallet_app.h"
#include "site/plugin_status.h"
#include "site/site_address.h"
#include "site/site_refusal.h"
#include "site/site_request.h"
#include "text/json.h"

namespace {

SecretText remove_body(const SiteSettings& settings)
{
    return SecretText(
        compact_json({{"alias", settings.alias}, {"login_pass", settings.pass.text()}, {"login_user", settings.user}}));
}

// The sentence for an answer that is no success; empty when the site has dropped the name. What else the site says of
// its failure is not shown: all that matters is that the name is still there.
std::wstring remove_refusal(const HttpReply& reply)
{
    std::wstring refusal = refusal_message(reply);
    if (!refusal.empty()) return refusal;
    if (reply.status == 404) return kInstallPluginFirst;
    return reply.is_success() ? L"" : L"The site kept the name.";
}

}  // namespace

std::wstring remove_sentence(const SiteSettings& settings)
{
    if (!is_valid_alias(settings.alias)) return L"Type the name to remove.";
    std::string typed_site = settings.site;
    const SiteAddress site = normalise_site(typed_site);
    if (!site.ok || settings.user.empty() || settings.pass.empty()) return L"Add the site login in settings.";

    if (plugin_on_site(site.base) != SitePlugin::current) return kInstallCurrentPlugin;
    const HttpReply reply = site_request("DELETE", site.base + "/wp-json/brasslet/v1/name", remove_body(settings),
                                         settings.user, settings.pass);
    std::wstring refusal = remove_refusal(reply);
    if (!refusal.empty()) return refusal;

    const std::string paymail = settings.alias + "@" + site.host;
    remove_payname(paymail);
    notify_wallet_app();
    return L"Removed " + widen(paymail) + L".";
}
