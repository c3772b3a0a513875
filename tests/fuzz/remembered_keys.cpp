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
std::optional<WalletKeys> really_derive(const SecretText&, std::uint32_t,
                                        std::uint32_t) __asm__("__real__Z18derive_wallet_keysRK10SecretTextjj");
std::optional<WalletKeys> remember(const SecretText&, std::uint32_t,
                                   std::uint32_t) __asm__("__wrap__Z18derive_wallet_keysRK10SecretTextjj");
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)

std::optional<WalletKeys> remember(const SecretText& phrase, std::uint32_t receive_index, std::uint32_t ordinals_index)
{
    static std::map<Asked, std::optional<WalletKeys>> remembered;
    if (remembered.size() >= kMostRemembered) remembered.clear();
    const auto [place, is_new] =
        remembered.try_emplace(Asked{phrase.text(), receive_index, ordinals_index}, std::nullopt);
    if (is_new) place->second = really_derive(phrase, receive_index, ordinals_index);
    return place->second;
}
