#include "wallet_bridge/wallet_identity.h"

#include "build_values.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/house_registry.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/wallet_events.h"
#include "wallet_bridge/wallet_registry.h"

#include <mutex>

namespace {

std::optional<std::string> unless_empty(const std::string& text)
{
    return text.empty() ? std::nullopt : std::optional(text);
}

// The loaded wallet's house paymail, its label registered for it; empty when it has none. A refused label is not the
// wallet's: another identity holds it, or may hold it as far as anybody can tell. It is neither shown nor sent nor
// saved. One that could not be written down is the wallet's all the same.
std::string ensured_house_paymail(Wallet& wallet, const std::string& wallet_id)
{
    const std::string& key = wallet.keys.identity_key;
    if (!wallet.has_phrase || key.empty()) return {};
    wallet.paymail = bare_label(wallet.paymail);
    const bool is_from_registry = wallet.paymail.empty();
    if (is_from_registry) wallet.paymail = house_label_of(key);
    if (wallet.paymail.empty()) return {};

    const HouseAddresses addresses{wallet.keys.address, wallet.keys.ordinals_address};
    const std::string refusal = register_house_label(wallet.paymail, key, addresses);
    if (!refusal.empty() && refusal != kHouseRegistryUnwritable) {
        wallet.paymail.clear();
        return {};
    }
    set_registry_name_from_paymail(wallet_id, wallet.paymail);
    if (is_from_registry) save_wallet();
    return wallet.paymail + "@" + kHouseDomain;
}

bool load_ready_wallet(const std::string& wallet_id)
{
    return wallet_binding().is_initialised && !wallet_id.empty() && load_wallet(wallet_id) &&
           loaded_wallet()->has_phrase;
}

}  // namespace

bool wallet_ready()
{
    const std::scoped_lock lock(wallet_state_mutex());
    return load_ready_wallet(bound_wallet_id());
}

std::optional<std::string> wallet_address()
{
    const std::scoped_lock lock(wallet_state_mutex());
    if (!load_wallet()) return std::nullopt;
    return unless_empty(loaded_wallet()->keys.address);
}

std::optional<std::string> identity_pubkey()
{
    const std::scoped_lock lock(wallet_state_mutex());
    if (!load_wallet()) return std::nullopt;
    return unless_empty(loaded_wallet()->keys.identity_key);
}

PublicIdentity public_identity()
{
    const std::scoped_lock lock(wallet_state_mutex());
    if (!load_wallet()) return {};
    return {loaded_wallet()->keys.identity_key, loaded_wallet()->keys.address};
}

std::string wallet_paymail()
{
    const std::scoped_lock lock(wallet_state_mutex());
    const std::string id = bound_wallet_id();
    return load_wallet(id) ? ensured_house_paymail(*loaded_wallet(), id) : std::string();
}

std::optional<WalletIdentity> ready_wallet()
{
    const std::scoped_lock lock(wallet_state_mutex());
    const std::string id = bound_wallet_id();
    if (!load_ready_wallet(id)) return std::nullopt;
    Wallet& wallet = *loaded_wallet();
    return WalletIdentity{wallet.keys.identity_key, wallet.keys.address, ensured_house_paymail(wallet, id)};
}

void refresh_identity()
{
    const std::scoped_lock lock(wallet_state_mutex());
    const std::string id = bound_wallet_id();
    if (!load_wallet(id)) return;
    const std::string paymail = ensured_house_paymail(*loaded_wallet(), id);
    if (!paymail.empty()) emit_event("paymail", paymail);
    const std::string& key = loaded_wallet()->keys.identity_key;
    if (!key.empty()) set_house_avatar(key, loaded_wallet()->picture);
}
