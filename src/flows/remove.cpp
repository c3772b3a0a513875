#include "flows/remove.h"

#include "paymail/kept_names.h"
#include "paymail/payname_rules.h"
#include "platform/wallet_app.h"
#include "site/site_address.h"
#include "site/site_reply.h"
#include "site/site_request.h"
#include "text/json.h"

namespace {

SecretText remove_body(const SiteSettings& settings, const SecretText& password)
{
    return SecretText(
        compact_json({{"alias", settings.alias}, {"login_pass", password.text()}, {"login_user", settings.user}}));
}

// The password is in clear for this one request.
HttpReply delete_name(const SiteAddress& site, const SiteSettings& settings)
{
    const SecretText password = settings.pass.in_clear();
    return site_request({"DELETE",
                         site.base + "/wp-json/brasslet/v1/name",
                         remove_body(settings, password),
                         {settings.user, password}});
}

// The sentence for a reply that is not a success; empty when the site deleted the name. Any other message of the site
// is not shown: what matters is that the name is still there.
std::string remove_refusal(const HttpReply& reply)
{
    std::string refusal = change_refusal(reply);
    if (!refusal.empty() || reply.is_success()) return refusal;
    return "The site kept the name.";
}

// Publishing keeps a name at the host of the site's reply, which may differ from the typed one (by "www.", for
// example). So the name is removed at both.
void forget(const std::string& alias, const std::string& typed_host, const std::string& own_host)
{
    const std::string host = payname_host(typed_host);
    remove_payname(alias + "@" + host);
    if (!own_host.empty() && own_host != host) remove_payname(alias + "@" + own_host);
}

}  // namespace

std::string remove_sentence(const SiteSettings& settings)
{
    if (!is_valid_alias(settings.alias)) return "Type the name to remove.";
    std::string typed_site = settings.site;
    const SiteAddress site = normalise_site(typed_site);
    if (!site.ok || settings.user.empty() || !settings.pass.opens()) return "Add the site login in settings.";

    const PluginStatus status = plugin_on_site(site.base);
    if (status.plugin != SitePlugin::current) return kInstallCurrentPlugin;
    const HttpReply reply = delete_name(site, settings);
    std::string refusal = remove_refusal(reply);
    if (!refusal.empty()) return refusal;

    forget(settings.alias, site.host, status.host);
    notify_wallet_app();
    return "Removed " + settings.alias + "@" + site.host + ".";
}
