#include "wallet/keys.h"

#include "text/hex.h"
#include "wallet/address.h"
#include "wallet/secp256k1.h"

#include <algorithm>

std::optional<DerivedKey> derive_key(const ExtendedKey& master, const DerivationPath& path)
{
    ExtendedKey key{master.private_key.clone(), master.chain_code.clone()};
    for (const std::uint32_t index : path) {
        auto child = derive_child(key, index);
        if (!child) return std::nullopt;
        key = std::move(*child);
    }
    const auto public_key = public_key_of(key.private_key.bytes());
    if (!public_key) return std::nullopt;

    DerivedKey derived;
    derived.private_key = SecretText(hex_encode(key.private_key.bytes()));
    derived.public_key = hex_encode(*public_key);
    derived.address = address_from_public_key(derived.public_key);
    if (derived.address.empty()) return std::nullopt;
    return derived;
}

std::string public_key_from_private(const SecretText& private_key_hex)
{
    WipedBuffer<32> private_key;
    auto bytes = hex_decode(private_key_hex.text());
    const bool is_key_size = bytes.size() == private_key.size();
    if (is_key_size) std::copy(bytes.begin(), bytes.end(), private_key.data());
    wipe(bytes.data(), bytes.size());
    if (!is_key_size) return {};

    const auto public_key = public_key_of(private_key.bytes());
    return public_key ? hex_encode(*public_key) : std::string();
}
