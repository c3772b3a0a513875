// Property: a wallet that loads survives a save and a load with its keys, counters and lists, and its document keeps
// every member that this program does not set; a file that does not load, or that a seal lies beside, leaves no wallet
// loaded and changes nothing on the disk. One whose document is of another format than the program's is never written.
#include "fuzz/data_folder.h"
#include "fuzz/target.h"
#include "text/json.h"
#include "wallet/address.h"
#include "wallet/lock_record.h"
#include "wallet_bridge/loaded_wallet.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace {

using nlohmann::json;

constexpr char kFile[] = "corvane_vaultry.json";  // of a program that is not bound

bool is_same(const OrdinalItem& one, const OrdinalItem& other)
{
    const auto tied = [](const OrdinalItem& item) {
        return std::tie(item.origin, item.txid, item.vout, item.type, item.address, item.name, item.icon, item.amount,
                        item.decimals, item.token_id, item.hidden);
    };
    return tied(one) == tied(other);
}

bool is_same(const Contact& one, const Contact& other)
{
    return one.dest == other.dest && one.note == other.note;
}

bool is_same(const WalletKeys& one, const WalletKeys& other)
{
    const auto tied = [](const WalletKeys& keys) {
        return std::tie(keys.private_key.text(), keys.public_key, keys.address, keys.identity_key,
                        keys.identity_address, keys.ordinals_address);
    };
    return tied(one) == tied(other);
}

template <typename Item>
bool are_same(const std::vector<Item>& one, const std::vector<Item>& other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const Item& a, const Item& b) { return is_same(a, b); });
}

bool is_same(const Wallet& one, const Wallet& other)
{
    const auto tied = [](const Wallet& wallet) {
        return std::tie(wallet.has_phrase, wallet.phrase.text(), wallet.backup_confirmed, wallet.receive_counters,
                        wallet.shown, wallet.paymail, wallet.picture);
    };
    return tied(one) == tied(other) && are_same(one.ordinals, other.ordinals) &&
           are_same(one.contacts, other.contacts) && is_same(one.keys, other.keys);
}

bool is_set_by_program(const std::string& member)
{
    static const std::vector<std::string> known = {"version", "mnemonic", "backup",   "recv", "show", "identity",
                                                   "address", "paymail",  "contacts", "priv", "pub",  "ord_avatar"};
    return std::find(known.begin(), known.end(), member) != known.end();
}

// Numbers count down to their digits.
void check_kept_members(std::string_view source, const std::string& rewritten)
{
    const json before = parse_exact_json(source);
    const json after = parse_exact_json(rewritten);
    require(before.is_object() && after.is_object(), "a wallet's document is an object");
    for (const auto& [key, value] : before.items()) {
        const bool is_empty_list = value.is_array() && value.empty();
        if (is_set_by_program(key) || is_empty_list) continue;
        require(after.contains(key) && after[key] == value, "a member that the program does not set stays as it was");
    }
    const auto contacts = before.find("contacts");
    if (contacts != before.end()) require(after["contacts"] == *contacts, "contacts stay as they were");
    const json counters = before.value("recv", json());
    for (std::size_t i = 0; counters.is_array() && i < counters.size(); ++i)
        require(after["recv"].at(i) == counters[i], "counters stay as they were");
}

bool is_of_another_format(const json& document)
{
    using Type = json::value_t;
    static const std::map<std::string, std::set<Type>> types = {
        {"version", {Type::number_unsigned}},
        {"show", {Type::number_unsigned, Type::number_integer, Type::binary}},  // binary: see parse_exact_json()
        {"backup", {Type::boolean}},
        {"recv", {Type::array}},
        {"ord_owned", {Type::array}},
        {"contacts", {Type::array}},
        {"mnemonic", {Type::string}},
        {"identity", {Type::string}},
        {"address", {Type::string}},
        {"paymail", {Type::string}},
        {"ord_avatar", {Type::string}},
        {"priv", {Type::string}},
        {"pub", {Type::string}},
    };
    for (const auto& [key, value] : document.items()) {
        const auto known = types.find(key);
        if (known != types.end() && !known->second.contains(value.type())) return true;
    }
    return document.value("version", json(0)) > json(2);
}

void check_loaded(HeldWallet& held, std::string_view bytes)
{
    const Wallet wallet = *held->wallet;
    require(wallet.shown <= wallet.receive_counters[1], "no more is shown than was handed out");
    require(hash160_from_address(wallet.keys.address).has_value(), "a wallet has a payment address");
    require(address_from_public_key(wallet.keys.public_key) == wallet.keys.address, "it belongs to its key");
    require(!is_wallet_locked(), "a wallet that loads is not locked");

    const bool is_saved = save_wallet(held);
    require(is_saved != is_of_another_format(parse_exact_json(bytes)),
            "a wallet is saved unless its format is another");
    if (!is_saved) {
        require(files_on_disk().at(kFile) == bytes, "a wallet of another format stays as it stands");
        return;
    }
    const std::string saved = files_on_disk().at(kFile);
    check_kept_members(bytes, saved);
    held->wallet->paymail = "changed since";
    require(load_wallet(held) && is_same(*held->wallet, wallet), "a load of the same bytes gives the wallet again");
    forget_wallet(held);
    require(load_wallet(held) && is_same(*held->wallet, wallet), "a wallet survives a save and a load");
    require(save_wallet(held) && files_on_disk().at(kFile) == saved, "saving it again changes nothing on the disk");
}

void check(std::string_view bytes)
{
    empty_data_folder();
    put_file(kFile, bytes);
    const FilesOnDisk before = files_on_disk();
    HeldWallet held = hold_wallet();
    const bool is_loaded = load_wallet(held);
    require(files_on_disk() == before, "loading changes nothing on the disk");
    require(is_loaded == held->wallet.has_value(), "a wallet is there when the load succeeds");
    require(!is_loaded || !is_lock_record(bytes), "a lock record does not load");
    if (is_loaded) {
        check_loaded(held, bytes);
    } else {
        require(!save_wallet(held) && files_on_disk() == before, "without a wallet there is nothing to save");
    }

    put_file(std::string(kFile) + ".seal", bytes);
    const FilesOnDisk sealed = files_on_disk();
    require(is_wallet_locked() && !load_wallet(held), "a wallet with a seal beside it is locked");
    require(!held->wallet && files_on_disk() == sealed, "a locked wallet is neither loaded nor written");
}

const FuzzTarget target("wallet_file", check);

}  // namespace
