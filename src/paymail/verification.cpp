#include "paymail/verification.h"

#include "build_values.h"
#include "net/chain_service.h"
#include "paymail/capability.h"
#include "paymail/discovery.h"
#include "paymail/kept_names.h"
#include "paymail/payment_destination.h"
#include "paymail/payname_rules.h"
#include "paymail/srv_host.h"
#include "text/ascii.h"
#include "text/clock.h"
#include "text/json.h"

#include <vector>

namespace {

using nlohmann::json;

struct Payname {
    std::string alias;
    std::string domain;
};

// What the world says about a domain's paymail service.
struct Discovered {
    std::string host;  // that answered
    json capabilities = json::object();
};

Payname split_payname(const std::string& payname)
{
    const std::size_t at = payname.find('@');
    if (at == std::string::npos) return {};
    return {payname.substr(0, at), payname.substr(at + 1)};
}

HttpReply discovery_document(const std::string& host)
{
    return discovery_get("https://" + host + "/.well-known/bsvalias");
}

// False when no host answers.
bool discover(const std::string& domain, Discovered& discovered)
{
    const std::string srv_host = find_srv_host(domain);
    discovered.host = is_valid_host(srv_host) ? srv_host : domain;
    HttpReply reply = discovery_document(discovered.host);
    if (!reply.error.empty() && discovered.host != domain) {
        discovered.host = domain;
        reply = discovery_document(domain);
    }
    if (!reply.error.empty()) return false;
    const json document = parse_json(reply.body);
    if (!document.is_object()) return true;
    if (const auto member = document.find("capabilities"); member != document.end() && member->is_object())
        discovered.capabilities = *member;
    return true;
}

// Asks for one satoshi's destination. The sender's name is fixed: nobody is paid, and the site learns no name from it.
std::string destination_request()
{
    return compact_json({{"senderName", "payname"},
                         {"senderHandle", "payname"},
                         {"dt", milliseconds_since_epoch()},
                         {"amount", 1},
                         {"purpose", "payment"}});
}

bool pays_only(const std::string& reply_body, const std::string& address)
{
    std::vector<PaymentOutput> outputs;
    std::string error;
    return read_payment_destination(reply_body, outputs, error) && outputs.size() == 1 &&
           outputs.front().address == address;
}

// The sentence for the user; empty when the name is kept.
std::string verify(const std::string& payname, const PublicIdentity& published)
{
    // Asked anew: while the site answered, Vaultry may have locked the wallet, bound this program to another one, or
    // moved on to the wallet's next address. A name is kept for none but the wallet that is connected now.
    const auto wallet = wallet_identity();
    if (!wallet) return "Connect a Vaultry wallet first.";
    const Payname name = split_payname(payname);
    if (!is_valid_alias(name.alias) || !is_valid_host(name.domain)) return "That name is not a paymail.";
    if (name.domain == kHouseDomain) return "The house paymail stays on Vaultry.";

    const std::string key = lower_ascii(published.public_key);
    if (!published.is_complete()) return "This Vaultry has no payment address yet.";
    if (wallet->public_key != published.public_key) return "That site is not publishing this Vaultry.";
    if (wallet->address != published.address) return "That site is paying a different address.";

    Discovered discovered;
    if (!discover(name.domain, discovered)) return "The site did not answer the paymail address.";
    const auto url_of = [&](const char* key_of_capability) {
        return capability_url(discovered.capabilities, key_of_capability, name.alias, name.domain, discovered.host);
    };

    const std::string pki_url = url_of("pki");
    if (pki_url.empty()) return "The site did not publish the key.";
    const HttpReply pki = discovery_get(pki_url);
    if (!pki.error.empty()) return "The site did not publish the key.";
    if (lower_ascii(text_member(parse_json(pki.body), "pubkey")) != key)
        return "That site is not publishing this Vaultry.";

    const std::string destination_url = url_of("paymentDestination");
    if (destination_url.empty()) return "The site did not publish a payment address.";
    const HttpReply destination = post_json(destination_url, destination_request(), std::chrono::seconds(12), 1);
    if (!destination.error.empty()) return "The site did not publish a payment address.";
    if (!pays_only(destination.body, published.address)) return "That site is paying a different address.";

    return keep_payname({payname, key, published.address}) ? "" : "Could not keep the name on this PC.";
}

}  // namespace

Verification verify_and_keep(const std::string& payname, const PublicIdentity& published)
{
    const std::string message = verify(lower_ascii(payname), published);
    return {message.empty(), message};
}
