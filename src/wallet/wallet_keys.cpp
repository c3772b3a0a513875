#include "wallet/wallet_keys.h"

#include "text/ascii.h"
#include "wallet/address.h"
#include "wallet/extended_key.h"
#include "wallet/phrase.h"

#include <algorithm>
#include <array>

namespace {

// Empty when a step fails.
std::optional<ExtendedKey> descendant(const ExtendedKey& ancestor, DerivationPath path)
{
    ExtendedKey key{ancestor.private_key.clone(), ancestor.chain_code.clone()};
    for (const std::uint32_t index : path) {
        auto child = derive_child(key, index);
        if (!child) return std::nullopt;
        key = std::move(*child);
    }
    return key;
}

}  // namespace

std::optional<DerivedKey> derive_key(const ExtendedKey& ancestor, DerivationPath path)
{
    const auto key = descendant(ancestor, path);
    if (!key) return std::nullopt;
    const auto public_key = public_key_of(key->private_key.bytes());
    if (!public_key) return std::nullopt;

    DerivedKey derived;
    derived.private_key = SecretText(hex_encode(key->private_key.bytes()));
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

namespace {

constexpr std::uint32_t kPurpose = kHardened + 44;
constexpr std::uint32_t kCoinType = kHardened + 236;
constexpr std::uint32_t kPaymentAccount = kHardened + 1;
constexpr std::uint32_t kIdentityAccount = kHardened + 100;
constexpr std::uint32_t kOrdinalsAccount = kHardened + 5;

// The first two steps are the same for every account.
std::optional<ExtendedKey> coin_key(const ExtendedKey& master)
{
    return descendant(master, std::array{kPurpose, kCoinType});
}

std::optional<DerivedKey> account_key(const ExtendedKey& coin, std::uint32_t account, std::uint32_t index)
{
    return derive_key(coin, std::array<std::uint32_t, 3>{account, 0, index});
}

std::optional<ExtendedKey> master_key_of_phrase(const SecretText& phrase)
{
    const auto seed = seed_from_phrase(phrase);
    return seed ? master_key(seed->bytes()) : std::nullopt;
}

std::optional<WalletKeys> derive_all(const ExtendedKey& master, std::uint32_t receive_index,
                                     std::uint32_t ordinals_index)
{
    const auto coin = coin_key(master);
    if (!coin) return std::nullopt;
    auto payment = account_key(*coin, kPaymentAccount, receive_index);
    if (!payment) return std::nullopt;
    auto identity = account_key(*coin, kIdentityAccount, 0);
    if (!identity) return std::nullopt;

    WalletKeys keys;
    keys.private_key = std::move(payment->private_key);
    keys.public_key = std::move(payment->public_key);
    keys.address = std::move(payment->address);
    keys.identity_key = std::move(identity->public_key);
    keys.identity_address = std::move(identity->address);
    // The ordinals address is optional: without it the wallet can still be paid and identified.
    auto ordinals = account_key(*coin, kOrdinalsAccount, ordinals_index);
    if (ordinals) keys.ordinals_address = std::move(ordinals->address);
    return keys;
}

}  // namespace

std::optional<WalletKeys> derive_wallet_keys(const SecretText& phrase, std::uint32_t receive_index,
                                             std::uint32_t ordinals_index)
{
    if (phrase.empty()) return std::nullopt;
    const auto master = master_key_of_phrase(phrase);
    auto keys = master ? derive_all(*master, receive_index, ordinals_index) : std::nullopt;
    wipe_finished_stack();
    return keys;
}
