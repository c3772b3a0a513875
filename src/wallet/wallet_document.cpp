#include "wallet/wallet_document.h"

#include "text/json.h"
#include "wallet/address.h"
#include "wallet/keys.h"
#include "wallet/lock_record.h"
#include "wallet/phrase.h"
#include "wallet/wallet_counters.h"
#include "wallet/wallet_items.h"

namespace {

using nlohmann::json;

constexpr std::size_t kOrdinalsCounter = 5;

// The member's own text, not a copy of it: empty when it is missing, null when it is no text.
const std::string* text_or_nothing(const json& document, const char* key)
{
    static const std::string kEmpty;
    const auto member = document.find(key);
    return member == document.end() ? &kEmpty : member->get_ptr<const std::string*>();
}

bool has_keys_of(const Wallet& known, const Wallet& wallet)
{
    return known.has_phrase && known.phrase.text() == wallet.phrase.text() && known.shown == wallet.shown &&
           known.receive_counters[kOrdinalsCounter] == wallet.receive_counters[kOrdinalsCounter];
}

bool read_phrase_wallet(const json& document, const Wallet* known, Wallet& wallet)
{
    wallet.has_phrase = true;
    wallet.phrase = SecretText(document["mnemonic"].get_ref<const std::string&>());
    if (!is_valid_phrase(wallet.phrase)) return false;

    const auto backup = document.find("backup");
    if (backup != document.end()) {
        if (!backup->is_boolean()) return false;
        wallet.backup_confirmed = backup->get<bool>();
    }
    wallet.receive_counters = counters_from(document);
    wallet.shown = shown_from(document, wallet.receive_counters[1]);
    wallet.paymail = text_member(document, "paymail");
    if (known == nullptr || !has_keys_of(*known, wallet))
        return derive_wallet_keys(wallet.phrase, wallet.shown, wallet.receive_counters[kOrdinalsCounter], wallet.keys);
    wallet.keys = known->keys;
    return true;
}

bool read_single_key_wallet(const json& document, Wallet& wallet)
{
    const std::string* private_key = text_or_nothing(document, "priv");
    const std::string* public_key = text_or_nothing(document, "pub");
    if (private_key == nullptr || public_key == nullptr) return false;

    WalletKeys& keys = wallet.keys;
    keys.private_key = SecretText(*private_key);
    keys.public_key = public_key->empty() ? public_key_from_private(keys.private_key) : *public_key;
    keys.address = address_from_public_key(keys.public_key);
    keys.identity_key = keys.public_key;
    keys.identity_address = keys.address;
    return !keys.address.empty();
}

bool read_document(const json& document, const Wallet* known, Wallet& wallet)
{
    if (!document.is_object()) return false;
    const auto mnemonic = document.find("mnemonic");
    const bool has_phrase = mnemonic != document.end() && mnemonic->is_string();
    if (!(has_phrase ? read_phrase_wallet(document, known, wallet) : read_single_key_wallet(document, wallet)))
        return false;
    wallet.picture = text_member(document, "ord_avatar");
    wallet.ordinals = ordinals_from(document);
    wallet.contacts = contacts_from(document);
    return true;
}

}  // namespace

std::optional<Wallet> read_wallet(SecretText text, const Wallet* known)
{
    if (is_lock_record(text.text())) {
        auto plain = open_lock_record(lock_key(), text.text());
        if (!plain) return std::nullopt;
        text = std::move(*plain);
    }
    std::optional<Wallet> wallet(std::in_place);
    if (!read_document(parse_json(text.text()), known, *wallet)) wallet.reset();
    wipe_finished_stack();
    if (wallet) wallet->source = std::move(text);
    return wallet;
}
