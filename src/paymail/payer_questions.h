// The questions of a paying wallet to the paymail service of a name (bsvalias): which key it has, and where to pay. One
// HTTPS exchange each.
#pragma once

#include "net/shared_connections.h"
#include "paymail/discovery.h"

#include <optional>
#include <string>

// For the life of this, the questions of this thread, discovery among them, follow each other on one connection.
using PayersConnections = SharedConnections;

// Alias and domain of a paymail in lower case; both empty without an "@".
Payname split_payname(const std::string& payname);

// The reply of the capability "pki". Empty when the service does not offer it, or did not answer with success.
[[nodiscard]] std::optional<std::string> pki_reply(const Discovery& discovery, const Payname& name,
                                                   const RequestTime& time = whole_request_time);

// The identity key in such a reply, in lower case; empty when there is none.
std::string published_key(const std::string& reply_body);

// How a request tells the time in its member "dt".
enum class TimeForm {
    number,  // milliseconds since 1970
    iso,     // ISO 8601, as the bsvalias documents have it; the reply has a script then
};

// The same for the capability "paymentDestination", asked where to pay one satoshi. Certificates are always checked,
// redirects never followed.
[[nodiscard]] std::optional<std::string> destination_reply(const Discovery& discovery, const Payname& name,
                                                           TimeForm form, const RequestTime& time = whole_request_time);
