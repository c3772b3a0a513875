#include "text/exact_json.h"
#include "wallet/wallet_counters.h"
#include "wallet/wallet_document.h"
#include "wallet/wallet_items.h"

#include <algorithm>
#include <initializer_list>

namespace {

using nlohmann::json;

constexpr std::uint64_t kFormatVersion = 2;

// What is there of the members known here has the type that the format gives it.
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
    const bool is_count = shown == document.end() || shown->is_number() || shown->is_binary();  // see text/exact_json.h
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
