// The keys that the program uses of one wallet, at purpose 44' and coin type 236'.
#pragma once

#include "text/secret.h"

#include <cstdint>
#include <string>

struct WalletKeys {
    SecretText private_key;    // of the payment key, or the single key: 64 hex digits
    std::string public_key;    // of the payment key, or the single key: 66 hex digits
    std::string address;       // payment address
    std::string identity_key;  // m/44'/236'/100'/0/0, public, 66 hex digits; for a single key its public key
    std::string identity_address;
    std::string ordinals_address;  // m/44'/236'/5'/0/j; empty when its derivation failed
};

// Payment key at m/44'/236'/1'/0/`receive_index`, identity key, and ordinals address at index `ordinals_index`, all
// from one master key. False, with nothing kept, when the payment or the identity key cannot be derived.
bool derive_wallet_keys(const SecretText& phrase, std::uint32_t receive_index, std::uint32_t ordinals_index,
                        WalletKeys& keys);
