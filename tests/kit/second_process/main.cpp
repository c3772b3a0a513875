// The other process of tests that need two. First argument: the folder of the local application data; second: what to
// do. It says one line when it has begun, and ends when its standard input ends.
#include "kit/test_folder.h"
#include "platform/file_lock.h"
#include "platform/files.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/migration.h"
#include "wallet_bridge/wallet_list.h"

#include <cstdio>
#include <exception>
#include <iostream>
#include <string>

#ifdef _WIN32
#include "platform/windows/unique_handle.h"
#include "platform/windows/windows_path.h"
#endif

namespace {

void say(const char* line)
{
    std::cout << line << std::endl;
}

void wait_for_the_end_of_input()
{
    while (std::getchar() != EOF) {
    }
}

int hold_lock()
{
    const RegistryLock lock;
    say("held");
    wait_for_the_end_of_input();
    return 0;
}

int add_entries(const std::string& prefix, int count)
{
    say("adding");
    for (int i = 0; i < count; ++i) {
        const RegistryLock lock;
        auto list = read_registry(lock);
        list["wallets"].push_back({{"id", prefix + std::to_string(i)}});
        if (!write_registry(lock, list)) return 1;
    }
    return 0;
}

int migrate()
{
    say("migrating");
    migrate_single_wallet();
    wait_for_the_end_of_input();
    return 0;
}

// Loads the wallet "1" and saves it with another paymail, for ever. The phrase's keys are derived once.
int save_wallet_for_ever()
{
    bind_at_startup(".", "Brasslet");
    HeldWallet held = hold_wallet();
    for (unsigned turn = 0;; ++turn) {
        if (!load_wallet(held, "1")) return 1;
        held->wallet->paymail = turn % 2 == 0 ? "ann" : "a-much-longer-label";
        if (!save_wallet(held)) return 1;
        if (turn == 0) say("saving");
    }
}

nlohmann::json list_of(int size, char letter)
{
    nlohmann::json list = {{"wallets", nlohmann::json::array()}};
    for (int i = 0; i < size; ++i)
        list["wallets"].push_back({{"id", std::to_string(i)}, {"name", std::string(20, letter)}});
    return list;
}

// Two lists in turns, until it is killed: `size` wallets with the letter "a" in their names, or with "b".
int write_wallet_list_for_ever(int size)
{
    const nlohmann::json lists[] = {list_of(size, 'a'), list_of(size, 'b')};
    for (unsigned turn = 0;; ++turn) {
        const RegistryLock lock;
        if (!write_registry(lock, lists[turn % 2])) return 1;
        if (turn == 0) say("writing");
    }
}

// A short text and a long one in turns, until it is killed.
int rewrite_for_ever(const std::string& path, std::size_t short_size, std::size_t long_size)
{
    say("writing");
    for (;;) {
        if (!rewrite_in_place(path, "[" + std::string(short_size, '1') + "]")) return 1;
        if (!rewrite_in_place(path, "[" + std::string(long_size, '2') + "]")) return 1;
    }
}

#ifdef _WIN32
// Opens the file as a program would that thinks of nobody else: others may at most do what `share` says.
int hold_open(const std::string& path, DWORD share)
{
    const UniqueHandle file(
        CreateFileW(wide_path(path).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
    say(file ? "open" : "failed");
    wait_for_the_end_of_input();
    return 0;
}
#endif

int run(const std::vector<std::string>& words)
{
    const std::string& task = words.at(1);
    if (task == "hold-lock") return hold_lock();
    if (task == "migrate") return migrate();
    if (task == "save-wallet") return save_wallet_for_ever();
    if (task == "add-entries") return add_entries(words.at(2), std::stoi(words.at(3)));
    if (task == "write-wallet-list") return write_wallet_list_for_ever(std::stoi(words.at(2)));
    if (task == "rewrite") return rewrite_for_ever(words.at(2), std::stoul(words.at(3)), std::stoul(words.at(4)));
#ifdef _WIN32
    if (task == "hold-open") return hold_open(words.at(2), FILE_SHARE_READ);
    if (task == "hold-alone") return hold_open(words.at(2), 0);
#endif
    return 2;
}

}  // namespace

int main(int count, char** arguments)
try {
    const std::vector<std::string> words(arguments + 1, arguments + count);
    if (words.size() < 2) return 2;
    use_local_app_data(words[0]);
    return run(words);
} catch (const std::exception&) {
    return 3;  // a word is missing or not a number
}
