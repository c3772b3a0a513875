// Keys and addresses as strings: at a derivation path, of a single private key, and those of a wallet that the program
// uses, at purpose 44' and coin type 236'.
#pragma once

#include "text/secret.h"
#include "wallet/extended_key.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

using DerivationPath = std::span<const std::uint32_t>;  // indexes; 0x80000000 and above are hardened

struct DerivedKey {
    SecretText private_key;  // 64 lower-case hex digits
    std::string public_key;  // 66 lower-case hex digits, compressed
    std::string address;     // Base58Check, version 0x00
};

// Key at `path` below `ancestor`. Empty when a step fails.
[[nodiscard]] std::optional<DerivedKey> derive_key(const ExtendedKey& ancestor, DerivationPath path);

// 66 lower-case hex digits; empty when `private_key_hex` is not 32 bytes or is zero or not below the group order.
std::string public_key_from_private(const SecretText& private_key_hex);

struct WalletKeys {
    SecretText private_key;    // of the payment key, or the single key: 64 hex digits
    std::string public_key;    // of the payment key, or the single key: 66 hex digits
    std::string address;       // payment address
    std::string identity_key;  // m/44'/236'/100'/0/0, public, 66 hex digits; for a single key its public key
    std::string identity_address;
    std::string ordinals_address;  // m/44'/236'/5'/0/j; empty when its derivation failed
};

// Payment key at m/44'/236'/1'/0/`receive_index`, identity key, and ordinals address at index `ordinals_index`, all
// from one master key. Empty when the payment or the identity key cannot be derived.
[[nodiscard]] std::optional<WalletKeys> derive_wallet_keys(const SecretText& phrase, std::uint32_t receive_index,
                                                           std::uint32_t ordinals_index);
