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
