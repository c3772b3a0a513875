// The reply to a payment-destination request (bsvalias P2P and basic address resolution).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct PaymentOutput {
    std::string address;        // Base58Check
    std::int64_t satoshis = 0;  // the request asks for one, so this is 1
};

// The outputs that the reply `body` asks for: always exactly one satoshi in all. False for anything else; then
// `outputs` is empty and `error` says why.
bool read_payment_destination(const std::string& body, std::vector<PaymentOutput>& outputs, std::string& error);
