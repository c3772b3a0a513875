#include "wallet/wallet_keys.h"

#include "wallet/keys.h"
#include "wallet/seed.h"

namespace {

constexpr std::uint32_t kPurpose = kHardened + 44;
constexpr std::uint32_t kCoinType = kHardened + 236;
constexpr std::uint32_t kPaymentAccount = kHardened + 1;
constexpr std::uint32_t kIdentityAccount = kHardened + 100;
constexpr std::uint32_t kOrdinalsAccount = kHardened + 5;

std::optional<DerivedKey> account_key(const ExtendedKey& master, std::uint32_t account, std::uint32_t index)
{
    return derive_key(master, {kPurpose, kCoinType, account, 0, index});
}

std::optional<ExtendedKey> master_key_of_phrase(const SecretText& phrase)
{
    const auto seed = seed_from_phrase(phrase);
    return seed ? master_key(seed->bytes()) : std::nullopt;
}

bool derive_all(const ExtendedKey& master, std::uint32_t receive_index, std::uint32_t ordinals_index, WalletKeys& keys)
{
    auto payment = account_key(master, kPaymentAccount, receive_index);
    if (!payment) return false;
    auto identity = account_key(master, kIdentityAccount, 0);
    if (!identity) return false;

    keys.private_key = std::move(payment->private_key);
    keys.public_key = std::move(payment->public_key);
    keys.address = std::move(payment->address);
    keys.identity_key = std::move(identity->public_key);
    keys.identity_address = std::move(identity->address);
    // A wallet without its ordinals address still pays and proves who it is.
    auto ordinals = account_key(master, kOrdinalsAccount, ordinals_index);
    if (ordinals) keys.ordinals_address = std::move(ordinals->address);
    return true;
}

}  // namespace

bool derive_wallet_keys(const SecretText& phrase, std::uint32_t receive_index, std::uint32_t ordinals_index,
                        WalletKeys& keys)
{
    keys = WalletKeys{};
    if (phrase.empty()) return false;
    const auto master = master_key_of_phrase(phrase);
    const bool derived = master && derive_all(*master, receive_index, ordinals_index, keys);
    wipe_finished_stack();
    return derived;
}
