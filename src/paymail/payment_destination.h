// The reply to a payment-destination request (bsvalias P2P and basic address resolution).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct PaymentOutput {
    std::string address;        // Base58Check
    std::int64_t satoshis = 0;  // the request asks for one, so this is 1
};

struct PaymentDestination {
    std::vector<PaymentOutput> outputs;  // of exactly one satoshi in all; empty after an error
    std::string error;                   // empty on success
};

// Reads the reply `body`.
[[nodiscard]] PaymentDestination read_payment_destination(const std::string& body);

// Whom a reply pays, seen from a wallet.
enum class Payee {
    wallet,
    other_address,  // a valid address that is not the wallet's
    other_output,   // a script that does not pay the wallet's address
    unclear,        // nobody, or not to be read
};

// Of the reply `body`, for the wallet with this address. Payers look in different members: one that names somebody else
// counts, whatever the others say.
[[nodiscard]] Payee payee_of(const std::string& body, const std::string& address);
