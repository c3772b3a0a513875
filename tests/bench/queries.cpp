// Times what the program asks of the wallet and of the kept names, each against its floor: bench_queries PAIRS
// ROWS. Ends with 1 when an answer is wrong.
#include "app/card_texts.h"
#include "bench/pairs.h"
#include "bench/require.h"
#include "kit/wallet_files.h"
#include "paymail/kept_names.h"
#include "platform/file_lock.h"
#include "platform/files.h"
#include "text/json.h"
#include "wallet/extended_key.h"
#include "wallet/phrase.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/wallet_identity.h"

#include <cstdlib>
#include <exception>
#include <string>

namespace {

using nlohmann::json;

constexpr std::uint32_t kAccounts[] = {1, 100, 5};
constexpr char kNames[] = "payname/payname.json";

// The stretching of the phrase and the five steps to each of the three keys, and nothing else.
void derive_alone(const SecretText& phrase)
{
    const auto seed = seed_from_phrase(phrase);
    require(seed.has_value(), "no seed");
    const auto master = master_key(seed->bytes());
    for (const std::uint32_t account : kAccounts) {
        ExtendedKey key{master->private_key.clone(), master->chain_code.clone()};
        for (const std::uint32_t index : {kHardened + 44, kHardened + 236, kHardened + account, 0U, 0U})
            key = derive_child(key, index).value();
    }
}

void read_and_parse(const std::string& path, std::size_t rows)
{
    const auto text = read_file(path);
    const json document = json::parse(text.value(), nullptr, false);
    require(document["names"].size() == rows, "the kept names' rows");
}

// The card's looks at the disk and nothing else, in their order: seal, wallet, house labels, spent items; the house
// labels again for the label; the wallets' names, under the lock; the names that were kept.
void look_at_files_alone(const TestFolder& folder, const std::string& wallet)
{
    const std::string data = folder.data();
    require(file_status(wallet + ".seal") == FileStatus::missing, "no seal");
    require(read_file(wallet).has_value(), "the wallet's file");
    require(read_file(data + "/corvane_paymail.json").has_value(), "the house labels");
    read_file(data + "/ord_snap/1_spent.json");
    require(read_file(data + "/corvane_paymail.json").has_value(), "the house labels");
    {
        const FileLock lock(data + "/wallets.lock");
        require(lock.is_held() && read_file(data + "/wallets.json").has_value(), "the wallets' names");
    }
    require(read_file(data + "/" + kNames).has_value(), "the names");
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
        HeldWallet held = hold_wallet();
        forget_wallet(held);
    };
    const auto floor = [&phrase] { derive_alone(phrase); };
    const auto query = [&wallet] { require(identity_pubkey() == wallet.public_key, "the identity key"); };
    const auto card = [] {
        require(wallet_card_texts().kept_names == "Vaultry kept " + name_of(0), "the card's names");
    };
    write_kept_names_of(folder, 1, wallet);
    print_pairs("identity-first", pairs, as_at_the_start, floor, query);
    print_pairs("identity-again", pairs, nothing, floor, query);
    print_pairs("card-first", pairs, as_at_the_start, query, card);
    print_pairs("card-again", pairs, nothing, query, card);
    const auto files = [&folder, path = wallet_path()] { look_at_files_alone(folder, path); };
    print_pairs("card-files", pairs, nothing, files, card);
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
