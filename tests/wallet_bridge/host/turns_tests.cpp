// What is held while the bridge uses its files: the lock of the wallet list, and the wallet state.
#include "kit/stand_in/native_path.h"
#include "kit/stand_in/stand_in.h"
#include "kit/wallet_files.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/connect.h"
#include "wallet_bridge/house_labels.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/migration.h"
#include "wallet_bridge/wallet_identity.h"
#include "wallet_bridge/wallet_list.h"

#include <gtest/gtest.h>

#include <future>
#include <set>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

using Names = std::set<std::string>;

const char* const kWallet = "wallets/1/wallet.json";

// Asked by opening the lock file anew, as another process would.
bool is_wallet_list_free(const TestFolder& folder)
{
    const int file = open(native_path(folder.data() + "/wallets.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    const bool is_free = flock(file, LOCK_EX | LOCK_NB) == 0;
    close(file);
    return is_free;
}

// Asked on another thread, since this one may hold it.
bool is_wallet_state_free()
{
    return std::async(std::launch::async, [] { return wallet_state().wallet.is_free(); }).get();
}

// The files that `work` uses, by their paths in the data directory: those used while held, and those used while free.
struct Uses {
    Names held;
    Names free;
};

template <typename IsFree, typename Work>
Uses uses_of(const TestFolder& folder, IsFree is_free, Work work)
{
    Uses uses;
    stand_in().files.on_use = [&](const std::string& path) {
        const bool is_shared = path.starts_with(folder.data() + "/");
        (is_free() ? uses.free : uses.held).insert(is_shared ? path.substr(folder.data().size() + 1) : path);
    };
    work();
    stand_in().files.on_use = nullptr;
    EXPECT_TRUE(is_free());
    return uses;
}

template <typename Work>
Uses wallet_list_uses_of(const TestFolder& folder, Work work)
{
    return uses_of(
        folder, [&folder] { return is_wallet_list_free(folder); }, work);
}

}  // namespace

TEST(WalletListTurns, ListingReadsUnderTheLock)
{
    const TestFolder folder;
    const Uses uses = wallet_list_uses_of(folder, list_wallets);
    EXPECT_EQ(uses.held, Names{"wallets.json"});
    EXPECT_EQ(uses.free, Names{});
}

TEST(WalletListTurns, NamingReadsAndWritesUnderTheLock)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1"}]})");
    const Uses uses = wallet_list_uses_of(folder, [] { set_registry_name_from_paymail("1", "ann"); });
    EXPECT_EQ(uses.held, (Names{"wallets.json", "wallets.json.tmp"}));
    EXPECT_EQ(uses.free, Names{});
}

TEST(WalletListTurns, TheMigrationDoesAllUnderTheLock)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    folder.write("wallets.json", R"({"wallets":[]})");
    const Uses uses = wallet_list_uses_of(folder, migrate_single_wallet);
    EXPECT_EQ(uses.held,
              (Names{"corvane_vaultry.json", "corvane_vaultry.json.moving", "wallets.json", "wallets.json.tmp"}));
    EXPECT_EQ(uses.free, Names{});
}

TEST(WalletListTurns, TheStartHoldsTheLockToItsEnd)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1"}]})");
    const Uses uses = wallet_list_uses_of(folder, [] { bind_at_startup(".", "Brasslet"); });
    EXPECT_EQ(uses.held, (Names{"binds/_.json", "corvane_vaultry.json.moving", "wallets.json"}));
    EXPECT_EQ(uses.free, Names{});
    EXPECT_TRUE(folder.has("binds/_.json"));
}

TEST(WalletListTurns, BindRecordsWalletFilesAndHouseLabelsAreUsedWithoutTheLock)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    const Uses uses = wallet_list_uses_of(folder, [] {
        bind_wallet("1");
        HeldWallet held = hold_wallet();
        EXPECT_TRUE(load_wallet(held));
        EXPECT_TRUE(save_wallet(held));
        EXPECT_EQ(register_house_label("ann", "02ab", {}), "");
        EXPECT_EQ(set_house_avatar("02ab", "p_0"), "");
        unbind_wallet();
    });
    EXPECT_EQ(uses.held, Names{});
    EXPECT_TRUE(uses.free.contains(kWallet));
    EXPECT_TRUE(uses.free.contains("corvane_paymail.json"));
    EXPECT_TRUE(uses.free.contains("binds/c__tools_brasslet.json"));
}

constexpr std::initializer_list<void (*)()> kQueries = {
    [] { EXPECT_TRUE(wallet_ready()); },
    [] { EXPECT_TRUE(wallet_address().has_value()); },
    [] { EXPECT_TRUE(identity_pubkey().has_value()); },
    [] { EXPECT_NE(public_identity(), PublicIdentity()); },
    [] { EXPECT_NE(wallet_paymail(), ""); },
    [] { EXPECT_TRUE(wallet_identity().has_value()); },
    [] { refresh_identity(); },
};

TEST(WalletStateTurns, EveryQueryDoesAllWhileItHoldsTheWallet)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}, {"ord_avatar", "p_0"}}));
    for (auto* const query : kQueries) {
        const Uses uses = uses_of(folder, is_wallet_state_free, query);
        EXPECT_TRUE(uses.held.contains(kWallet));
        EXPECT_EQ(uses.free, Names{});
    }
}

TEST(WalletStateTurns, EveryQuestionLoadsTheWalletOnce)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}, {"ord_avatar", "p_0"}}));
    int loads = 0;
    stand_in().files.on_use = [&loads](const std::string& path) { loads += path.ends_with(kWallet) ? 1 : 0; };
    int questions = 0;
    for (auto* const query : kQueries) {
        query();
        EXPECT_EQ(loads, ++questions);
    }
    EXPECT_EQ(connect_wallet(), "success");
    EXPECT_EQ(loads, ++questions);
    stand_in().files.on_use = nullptr;
}
