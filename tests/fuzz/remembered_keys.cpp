// Deriving a wallet's keys takes some milliseconds, and gives the same for the same phrase and the same two indices.
// Put between the reader of wallet files and the derivation (the linker's --wrap), this asks once for each of them.
#include "wallet/wallet_keys.h"

#include <map>
#include <optional>
#include <tuple>

namespace {

using Asked = std::tuple<std::string, std::uint32_t, std::uint32_t>;

constexpr std::size_t kMostRemembered = 1000;

}  // namespace

// The linker's names for derive_wallet_keys.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" bool __real__Z18derive_wallet_keysRK10SecretTextjjR10WalletKeys(const SecretText& phrase,
                                                                           std::uint32_t receive_index,
                                                                           std::uint32_t ordinals_index,
                                                                           WalletKeys& keys);
extern "C" bool __wrap__Z18derive_wallet_keysRK10SecretTextjjR10WalletKeys(const SecretText& phrase,
                                                                           std::uint32_t receive_index,
                                                                           std::uint32_t ordinals_index,
                                                                           WalletKeys& keys);

extern "C" bool __wrap__Z18derive_wallet_keysRK10SecretTextjjR10WalletKeys(const SecretText& phrase,
                                                                           std::uint32_t receive_index,
                                                                           std::uint32_t ordinals_index,
                                                                           WalletKeys& keys)
{
    static std::map<Asked, std::optional<WalletKeys>> remembered;
    if (remembered.size() >= kMostRemembered) remembered.clear();
    const auto [place, is_new] =
        remembered.try_emplace(Asked{phrase.text(), receive_index, ordinals_index}, std::nullopt);
    if (is_new) {
        WalletKeys derived;
        if (__real__Z18derive_wallet_keysRK10SecretTextjjR10WalletKeys(phrase, receive_index, ordinals_index, derived))
            place->second = derived;
    }
    keys = place->second.value_or(WalletKeys{});
    return place->second.has_value();
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
