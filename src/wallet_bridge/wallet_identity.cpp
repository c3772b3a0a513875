#include "wallet_bridge/wallet_identity.h"

#include "build_values.h"
#include "wallet_bridge/house_labels.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/wallet_list.h"

namespace {

std::optional<std::string> unless_empty(const std::string& text)
{
    return text.empty() ? std::nullopt : std::optional(text);
}

PublicIdentity public_identity_of(const Wallet& wallet)
{
    return {wallet.keys.identity_key, wallet.keys.address};
}

// The loaded wallet's house paymail, its label registered for it; empty when it has none. A refused label is not the
// wallet's: another identity holds it, or may hold it as far as anybody can tell. It is neither shown nor sent nor
// saved. One that could not be written down is the wallet's all the same.
std::string ensured_house_paymail(HeldWallet& held)
{
    if (!held->wallet) return {};
    Wallet& wallet = *held->wallet;
    const std::string& key = wallet.keys.identity_key;
    if (!wallet.has_phrase || key.empty()) return {};
    wallet.paymail = bare_label(wallet.paymail);
    const bool is_found = wallet.paymail.empty();
    if (is_found) wallet.paymail = house_label_of(key);
    if (wallet.paymail.empty()) return {};

    const HouseAddresses addresses{wallet.keys.address, wallet.keys.ordinals_address};
    const std::string refusal = register_house_label(wallet.paymail, key, addresses);
    if (!refusal.empty() && refusal != kHouseLabelsUnwritable) {
        wallet.paymail.clear();
        return {};
    }
    set_registry_name_from_paymail(held->id, wallet.paymail);
    // A label that could not be written is found again by the next query.
    if (is_found) static_cast<void>(save_wallet(held));
    return wallet.paymail + "@" + kHouseDomain;
}

bool load_ready_wallet(HeldWallet& held)
{
    const std::string id = bound_wallet_id();
    return wallet_binding().is_initialised && !id.empty() && load_wallet(held, id) && held->wallet->has_phrase;
}

}  // namespace

bool wallet_ready()
{
    HeldWallet held = hold_wallet();
    return load_ready_wallet(held);
}

std::optional<std::string> wallet_address()
{
    return unless_empty(public_identity().address);
}

std::optional<std::string> identity_pubkey()
{
    return unless_empty(public_identity().public_key);
}

PublicIdentity public_identity()
{
    HeldWallet held = hold_wallet();
    return load_wallet(held) ? public_identity_of(*held->wallet) : PublicIdentity();
}

std::string wallet_paymail()
{
    HeldWallet held = hold_wallet();
    return load_wallet(held) ? ensured_house_paymail(held) : std::string();
}

std::optional<WalletIdentity> wallet_identity()
{
    HeldWallet held = hold_wallet();
    if (!load_ready_wallet(held)) return std::nullopt;
    return WalletIdentity{public_identity_of(*held->wallet), ensured_house_paymail(held)};
}

void refresh_identity()
{
    std::string house_paymail;
    {
        HeldWallet held = hold_wallet();
        if (!load_wallet(held)) return;
        house_paymail = refresh_identity(held);
    }
    announce_house_paymail(house_paymail);
}

std::string refresh_identity(HeldWallet& held)
{
    if (!held->wallet) return {};
    std::string house_paymail = ensured_house_paymail(held);
    const std::string& key = held->wallet->keys.identity_key;
    // The picture is decoration: without it the identity is complete.
    if (!key.empty()) static_cast<void>(set_house_avatar(key, held->wallet->picture));
    return house_paymail;
}

void announce_house_paymail(const std::string& house_paymail)
{
    if (!house_paymail.empty()) emit_event("paymail", house_paymail);
}
