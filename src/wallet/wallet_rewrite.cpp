#include "text/exact_json.h"
#include "wallet/wallet_counters.h"
#include "wallet/wallet_document.h"
#include "wallet/wallet_items.h"

namespace {

using nlohmann::json;

constexpr int kFormatVersion = 2;

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
    if (!document.is_object()) return {};
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
