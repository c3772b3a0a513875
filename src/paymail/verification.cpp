#include "paymail/verification.h"

#include "build_values.h"
#include "net/chain_service.h"
#include "paymail/discovery.h"
#include "paymail/kept_names.h"
#include "paymail/payment_destination.h"
#include "paymail/payname_rules.h"
#include "text/ascii.h"
#include "text/clock.h"
#include "text/json.h"

#include <vector>

namespace {

using nlohmann::json;

Payname split_payname(const std::string& payname)
{
    const std::size_t at = payname.find('@');
    if (at == std::string::npos) return {};
    return {payname.substr(0, at), payname.substr(at + 1)};
}

// Asks where to pay one satoshi. Nobody pays, so the sender's name is fixed and tells the site nothing.
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
    const PaymentDestination destination = read_payment_destination(reply_body);
    return destination.outputs.size() == 1 && destination.outputs.front().address == address;
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

    const auto discovery = discover(name.domain);
    if (!discovery) return "The site did not answer the paymail address.";

    const std::string pki_url = capability_url(*discovery, "pki", name);
    if (pki_url.empty()) return "The site did not publish the key.";
    const HttpReply pki = discovery_get(pki_url);
    if (!pki.error.empty()) return "The site did not publish the key.";
    if (lower_ascii(text_member(parse_json(pki.body), "pubkey")) != key)
        return "That site is not publishing this Vaultry.";

    const std::string destination_url = capability_url(*discovery, "paymentDestination", name);
    if (destination_url.empty()) return "The site did not publish a payment address.";
    const HttpReply destination = post_json({destination_url, destination_request(), std::chrono::seconds(12), 1});
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
