#include "wallet/wallet_document.h"

#include "text/json.h"
#include "wallet/address.h"
#include "wallet/lock_record.h"
#include "wallet/phrase.h"
#include "wallet/wallet_items.h"
#include "wallet/wallet_keys.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace {

using nlohmann::json;

constexpr std::size_t kOrdinalsCounter = 5;

// The member's string, not copied because it may be secret; "" when it is missing, null when it is not a string.
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

bool read_phrase_wallet(const json& document, std::optional<Wallet>& known, Wallet& wallet)
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
    if (known && has_keys_of(*known, wallet)) {
        wallet.keys = std::move(known->keys);
        return true;
    }
    auto keys = derive_wallet_keys(wallet.phrase, wallet.shown, wallet.receive_counters[kOrdinalsCounter]);
    if (!keys) return false;
    wallet.keys = std::move(*keys);
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

bool read_document(const json& document, std::optional<Wallet>& known, Wallet& wallet)
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

std::optional<Wallet> read_wallet(SecretText text, std::optional<Wallet> known)
{
    if (known && known->source.text() == text.text()) {
        known->paymail = known->source_paymail;
        return known;
    }
    if (is_lock_record(text.text())) {
        auto plain = open_lock_record(lock_key(), text.text());
        if (!plain) return std::nullopt;
        text = std::move(*plain);
    }
    std::optional<Wallet> wallet(std::in_place);
    if (!read_document(parse_json(text.text()), known, *wallet)) wallet.reset();
    wipe_finished_stack();
    if (wallet) set_source(*wallet, std::move(text));
    return wallet;
}

namespace {

constexpr std::uint64_t kFormatVersion = 2;

// True when every known member of the document has the type of this format.
bool is_understood(const json& document)
{
    const auto is_each = [&document](bool (json::*has_type)() const noexcept, std::initializer_list<const char*> keys) {
        return std::ranges::all_of(keys, [&document, has_type](const char* key) {
            const auto member = document.find(key);
            return member == document.end() || ((*member).*has_type)();
        });
    };
    const auto version = document.find("version");
    const bool is_newer = version != document.end() &&
                          !(version->is_number_unsigned() && version->get<std::uint64_t>() <= kFormatVersion);
    const auto shown = document.find("show");
    const bool is_count =
        shown == document.end() || shown->is_number() || shown->is_binary();  // see parse_exact_json()
    return !is_newer && is_count && is_each(&json::is_boolean, {"backup"}) &&
           is_each(&json::is_array, {"recv", "ord_owned", "contacts"}) &&
           is_each(&json::is_string, {"mnemonic", "identity", "address", "paymail", "ord_avatar", "priv", "pub"});
}

void set_or_drop(json& document, const char* key, const std::string& text)
{
    const auto member = document.find(key);
    if (!text.empty()) {
        document[key] = text;
    } else if (member != document.end() && member->is_string()) {
        document.erase(member);
    }
}

void set_phrase_members(json& document, const Wallet& wallet)
{
    document["version"] = kFormatVersion;
    document["mnemonic"] = wallet.phrase.text();
    document["backup"] = wallet.backup_confirmed;
    set_counters(document, wallet.receive_counters);
    document["show"] = wallet.shown;
    document["identity"] = wallet.keys.identity_key;
    document["address"] = wallet.keys.address;
    set_or_drop(document, "paymail", wallet.paymail);
}

void set_single_key_members(json& document, const Wallet& wallet)
{
    document["priv"] = wallet.keys.private_key.text();
    document["pub"] = wallet.keys.public_key;
    document["address"] = wallet.keys.address;
}

std::string document_text(const Wallet& wallet)
{
    json document = wallet.source.empty() ? json::object() : parse_exact_json(wallet.source.text());
    if (!document.is_object() || !is_understood(document)) return {};
    if (wallet.has_phrase) {
        set_phrase_members(document, wallet);
    } else {
        set_single_key_members(document, wallet);
    }
    set_or_drop(document, "ord_avatar", wallet.picture);
    set_ordinals(document, wallet.ordinals);
    set_contacts(document, wallet.contacts);
    return pretty_exact_json(document);
}

}  // namespace

SecretText wallet_text(const Wallet& wallet)
{
    SecretText text(document_text(wallet));
    wipe_finished_stack();
    return text;
}

void set_source(Wallet& wallet, SecretText text)
{
    wallet.source = std::move(text);
    wallet.source_paymail = wallet.has_phrase ? wallet.paymail : "";
}
