// Times what the program asks of the wallet and of the kept names, each against its floor: bench_queries PAIRS
// ROWS. Ends with 1 when an answer is wrong.
#include "app/card_texts.h"
#include "bench/pairs.h"
#include "bench/require.h"
#include "kit/card_looks.h"
#include "kit/wallet_files.h"
#include "paymail/kept_names.h"
#include "platform/file_stamp.h"
#include "platform/files.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet/address.h"
#include "wallet/extended_key.h"
#include "wallet/phrase.h"
#include "wallet_bridge/afresh.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/wallet_identity.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <initializer_list>
#include <ranges>
#include <string>

namespace {

using nlohmann::json;

constexpr std::uint32_t kAccounts[] = {1, 100, 5};
constexpr char kNames[] = "payname/payname.json";

ExtendedKey below(const ExtendedKey& ancestor, std::initializer_list<std::uint32_t> path)
{
    ExtendedKey key{ancestor.private_key.clone(), ancestor.chain_code.clone()};
    for (const std::uint32_t index : path)
        key = derive_child(key, index).value();
    return key;
}

// The stretching of the phrase and the five steps to each of the three keys, and nothing else.
void derive_alone(const SecretText& phrase)
{
    const auto seed = seed_from_phrase(phrase);
    require(seed.has_value(), "no seed");
    const auto master = master_key(seed->bytes());
    for (const std::uint32_t account : kAccounts)
        below(*master, {kHardened + 44, kHardened + 236, kHardened + account, 0U, 0U});
}

// What the keys of a wallet take at least: as above, with the two steps that the three keys share taken once, and their
// public keys and addresses.
void derive_keys_alone(const SecretText& phrase, const WalletIdentity& wallet)
{
    const auto seed = seed_from_phrase(phrase);
    require(seed.has_value(), "no seed");
    const ExtendedKey coin = below(master_key(seed->bytes()).value(), {kHardened + 44, kHardened + 236});
    for (const std::uint32_t account : kAccounts) {
        const ExtendedKey key = below(coin, {kHardened + account, 0U, 0U});
        const std::string address = address_from_public_key(hex_encode(public_key_of(key.private_key.bytes()).value()));
        require((address == wallet.address) == (account == 1), "the payment address");
    }
}

void read_and_parse(const std::string& path, std::size_t rows)
{
    const auto text = read_file(path);
    const json document = json::parse(text.value(), nullptr, false);
    require(document["names"].size() == rows, "the kept names' rows");
}

// The card's looks at the disk and nothing else, in their order.
void look_at_files_alone(const TestFolder& folder)
{
    for (const CardLook& look : kCardLooks) {
        const std::string path = folder.data() + "/" + look.path;
        require(look.is_opened ? read_file(path).has_value() : file_stamp(path).status != FileStatus::unknown,
                look.path);
    }
}

std::string name_of(int row)
{
    return "name" + std::to_string(row) + "@brasslet.test";
}

// Rows of this wallet alone: nothing is as much work.
void write_kept_names_of(const TestFolder& folder, int rows, const WalletIdentity& wallet)
{
    json names = json::array();
    for (int row = 0; row < rows; ++row)
        names.push_back({{"paymail", name_of(row)}, {"pubkey", wallet.public_key}, {"address", wallet.address}});
    folder.write(kNames, pretty_json({{"names", names}}));
}

void time_wallet(const TestFolder& folder, int pairs, const WalletIdentity& wallet)
{
    const SecretText phrase{std::string(kPhrase)};
    const auto nothing = [] {};
    const auto as_at_the_start = [] {
        start_wallet_state_afresh();
        bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
    };
    const auto floor = [&phrase] { derive_alone(phrase); };
    const auto keys = [&phrase, &wallet] { derive_keys_alone(phrase, wallet); };
    const auto query = [&wallet] { require(identity_pubkey() == wallet.public_key, "the identity key"); };
    const auto card = [] {
        require(wallet_card_texts().kept_names == "Vaultry kept " + name_of(0), "the card's names");
    };
    write_kept_names_of(folder, 1, wallet);
    print_pairs("identity-first", pairs, as_at_the_start, floor, query);
    print_pairs("identity-keys", pairs, as_at_the_start, keys, query);
    print_pairs("identity-again", pairs, nothing, floor, query);
    print_pairs("card-first", pairs, as_at_the_start, query, card);
    print_pairs("card-again", pairs, nothing, query, card);
    print_pairs(
        "card-files", pairs, nothing, [&folder] { look_at_files_alone(folder); }, card);
    const auto opened = std::ranges::count(kCardLooks, true, &CardLook::is_opened);
    print_pair("card-looks", static_cast<double>(opened), static_cast<double>(std::ranges::size(kCardLooks) - opened));
}

void time_kept_names(const TestFolder& folder, int pairs, int rows, const WalletIdentity& wallet)
{
    write_kept_names_of(folder, rows, wallet);
    const std::string path = folder.data() + "/" + kNames;
    const auto floor = [&path, rows] { read_and_parse(path, static_cast<std::size_t>(rows)); };
    const auto names = [rows] {
        require(names_of_this_wallet().ends_with(name_of(rows - 1)), "the names of this wallet");
    };
    print_pairs(
        "kept_names", pairs, [] {}, floor, names);
}

void time_all(int pairs, int rows)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "sofia"}}));
    const auto wallet = wallet_identity();
    require(wallet && wallet->house_paymail.starts_with("sofia@"), "the wallet");
    // The label and the wallet's name were just written. What is an hour old can be remembered.
    folder.age("corvane_paymail.json");
    folder.age("wallets.json");
    time_wallet(folder, pairs, *wallet);
    time_kept_names(folder, pairs, rows, *wallet);
}

}  // namespace

int main(int count, char** words)
{
    if (count != 3) return 2;
    try {
        time_all(std::atoi(words[1]), std::atoi(words[2]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_queries: %s\n", error.what());
        return 1;
    }
    return 0;
}
