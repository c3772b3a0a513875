#include "flows/publish_reply.h"

#include "flows/change_refusal.h"
#include "paymail/payname_rules.h"
#include "platform/text_conversion.h"
#include "site/shown_text.h"
#include "site/site_refusal.h"
#include "text/json.h"

namespace {

using nlohmann::json;

// The names of the reply but `alias`, as paymails joined by ", ".
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

std::wstring publish_refusal(const HttpReply& reply)
{
    std::wstring refusal = change_refusal(reply);
    if (!refusal.empty() || reply.is_success()) return refusal;
    std::wstring message = shown_text(reply_message(reply.body));
    if (!message.empty()) return message;
    return reply.error.empty() ? L"The site did not take the name." : widen(reply.error);
}

std::string published_host(const HttpReply& reply, const std::string& typed_host)
{
    const std::string host = text_member(parse_json(reply.body), "host");
    return payname_host(host.empty() ? typed_host : host);
}

std::wstring kept_sentence(const Verification& verification, const std::string& alias, const std::string& host,
                           const HttpReply& reply)
{
    if (!verification.is_kept)
        return verification.message.empty() ? L"Vaultry did not keep the name." : widen(verification.message);
    const std::wstring kept = L"Vaultry kept " + widen(alias + "@" + host) + L".";
    const std::wstring others = shown_text(other_paymails(reply, alias, host));
    return others.empty() ? kept : kept + L" Still on the site: " + others + L".";
}
