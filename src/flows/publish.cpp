#include "flows/publish.h"

#include "paymail/payname_rules.h"
#include "paymail/verification.h"
#include "platform/wallet_app.h"
#include "site/site_address.h"
#include "site/site_reply.h"
#include "site/site_request.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet_bridge/wallet_identity.h"

namespace {

using nlohmann::json;

// The reply's names other than `alias`, as paymails joined by ", ".
std::string other_paymails(const HttpReply& reply, const std::string& alias, const std::string& host)
{
    const json document = parse_json(reply.body);
    if (!document.is_object()) return {};
    const auto aliases = document.find("aliases");
    if (aliases == document.end() || !aliases->is_array()) return {};
    std::string others;
    for (const json& other : *aliases) {
        if (!other.is_string() || other.get_ref<const std::string&>() == alias) continue;
        if (!others.empty()) others += ", ";
        others.append(other.get_ref<const std::string&>()).append("@").append(host);
    }
    return others;
}

}  // namespace

std::string publish_refusal(const HttpReply& reply)
{
    std::string refusal = change_refusal(reply);
    if (!refusal.empty() || reply.is_success()) return refusal;
    std::string message = shown_text(reply_message(reply.body));
    if (!message.empty()) return message;
    return reply.error.empty() ? "The site did not take the name." : reply.error;
}

std::string published_host(const HttpReply& reply, const std::string& typed_host)
{
    const std::string host = text_member(parse_json(reply.body), "host");
    return payname_host(host.empty() ? typed_host : host);
}

std::string kept_sentence(const Verification& verification, const std::string& alias, const std::string& host,
                          const HttpReply& reply)
{
    if (!verification.is_kept)
        return verification.message.empty() ? "Vaultry did not keep the name." : verification.message;
    const std::string kept = "Vaultry kept " + alias + "@" + host + ".";
    const std::string others = shown_text(other_paymails(reply, alias, host));
    return others.empty() ? kept : kept + " Still on the site: " + others + ".";
}

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
    return site_request({"POST",
                         site.base + "/wp-json/brasslet/v1/name",
                         publish_body(settings, password, wallet),
                         {settings.user, password}});
}

}  // namespace

std::string publish_sentence(const SiteSettings& settings,
                             const std::function<void(const std::string& payname)>& on_kept)
{
    // The one load of the wallet for all that is sent: key, address and house paymail belong together.
    const auto wallet = wallet_identity();
    if (!wallet) return "Connect a Vaultry wallet first.";
    if (!is_valid_alias(settings.alias)) return "Type the name. Letters, numbers, and . _ + -";
    std::string typed_site = settings.site;
    const SiteAddress site = normalise_site(typed_site);
    if (!site.ok || site.host.find('.') == std::string::npos) return "Add the site in settings. It needs https.";
    if (settings.user.empty() || !settings.pass.opens())
        return "Add the WordPress user and application password in settings.";

    if (!wallet->is_complete()) return "This Vaultry has no payment address yet.";

    if (plugin_on_site(site.base).plugin != SitePlugin::current) return kInstallCurrentPlugin;
    const HttpReply reply = post_name(site, settings, *wallet);
    std::string refusal = publish_refusal(reply);
    if (!refusal.empty()) return refusal;

    const std::string host = published_host(reply, site.host);
    const std::string payname = settings.alias + "@" + host;
    const Verification verification = verify_and_keep(payname, *wallet);
    if (verification.is_kept) {
        on_kept(payname);
        notify_wallet_app();
    }
    return kept_sentence(verification, settings.alias, host, reply);
}
