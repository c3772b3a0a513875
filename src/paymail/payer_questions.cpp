#include "paymail/payer_questions.h"

#include "net/chain_service.h"
#include "text/ascii.h"
#include "text/clock.h"
#include "text/json.h"

namespace {

using nlohmann::json;

// Asks where to pay one satoshi. Nobody pays, so the sender's name is fixed and tells the site nothing.
std::string destination_request(TimeForm form)
{
    const std::int64_t now = milliseconds_since_epoch();
    return compact_json({{"senderName", "payname"},
                         {"senderHandle", "payname"},
                         {"dt", form == TimeForm::iso ? json(iso_time(now)) : json(now)},
                         {"amount", 1},
                         {"purpose", "payment"}});
}

std::optional<std::string> body_of_success(const HttpReply& reply)
{
    return reply.error.empty() ? std::optional(reply.body) : std::nullopt;
}

}  // namespace

Payname split_payname(const std::string& payname)
{
    const std::string name = lower_ascii(payname);
    const std::size_t at = name.find('@');
    if (at == std::string::npos) return {};
    return {name.substr(0, at), name.substr(at + 1)};
}

std::optional<std::string> pki_reply(const Discovery& discovery, const Payname& name, const RequestTime& time)
{
    const std::string url = capability_url(discovery, "pki", name);
    if (url.empty()) return std::nullopt;
    return body_of_success(discovery_get(url, time));
}

std::string published_key(const std::string& reply_body)
{
    return lower_ascii(text_member(parse_json(reply_body), "pubkey"));
}

std::optional<std::string> destination_reply(const Discovery& discovery, const Payname& name, TimeForm form,
                                             const RequestTime& time)
{
    const std::string url = capability_url(discovery, "paymentDestination", name);
    if (url.empty()) return std::nullopt;
    const auto request_time = time();
    if (!request_time) return std::nullopt;
    return body_of_success(post_json({url, destination_request(form), *request_time, 1}));
}
