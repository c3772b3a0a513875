#include "paymail/verification.h"

#include "build_values.h"
#include "paymail/discovery.h"
#include "paymail/kept_names.h"
#include "paymail/payer_questions.h"
#include "paymail/payment_destination.h"
#include "paymail/payname_rules.h"
#include "text/ascii.h"

namespace {

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

    const PayersConnections connections;
    const auto discovery = discover(name.domain);
    if (!discovery) return "The site did not answer the paymail address.";

    const auto pki = pki_reply(*discovery, name);
    if (!pki) return "The site did not publish the key.";
    if (published_key(*pki) != key) return "That site is not publishing this Vaultry.";

    const auto destination = destination_reply(*discovery, name, TimeForm::number);
    if (!destination) return "The site did not publish a payment address.";
    if (payee_of(*destination, published.address) != Payee::wallet) return "That site is paying a different address.";

    return keep_payname({payname, key, published.address}) ? "" : "Could not keep the name on this PC.";
}

}  // namespace

Verification verify_and_keep(const std::string& payname, const PublicIdentity& published)
{
    const std::string message = verify(lower_ascii(payname), published);
    return {message.empty(), message};
}
