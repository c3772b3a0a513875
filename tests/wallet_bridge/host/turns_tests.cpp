// What is held while the bridge uses its files: the registry lock, and the wallet-state mutex.
#include "kit/stand_in/native_path.h"
#include "kit/stand_in/stand_in.h"
#include "kit/wallet_files.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/house_registry.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/migration.h"
#include "wallet_bridge/wallet_identity.h"
#include "wallet_bridge/wallet_registry.h"

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
bool is_registry_free(const TestFolder& folder)
{
    const int file = open(native_path(folder.data() + "/wallets.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    const bool is_free = flock(file, LOCK_EX | LOCK_NB) == 0;
    close(file);
    return is_free;
}

// Asked on another thread: a thread may take a recursive mutex again.
bool is_wallet_state_free()
{
    const auto ask = [] {
        const bool is_free = wallet_state_mutex().try_lock();
        if (is_free) wallet_state_mutex().unlock();
        return is_free;
    };
    return std::async(std::launch::async, ask).get();
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
Uses registry_uses_of(const TestFolder& folder, Work work)
{
    return uses_of(
        folder, [&folder] { return is_registry_free(folder); }, work);
}

}  // namespace

TEST(RegistryTurns, ListingReadsUnderTheLock)
{
    const TestFolder folder;
    const Uses uses = registry_uses_of(folder, list_wallets);
    EXPECT_EQ(uses.held, Names{"wallets.json"});
    EXPECT_EQ(uses.free, Names{});
}

TEST(RegistryTurns, NamingReadsAndWritesUnderTheLock)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1"}]})");
    const Uses uses = registry_uses_of(folder, [] { set_registry_name_from_paymail("1", "ann"); });
    EXPECT_EQ(uses.held, (Names{"wallets.json", "wallets.json.tmp"}));
    EXPECT_EQ(uses.free, Names{});
}

TEST(RegistryTurns, TheMigrationDoesAllUnderTheLock)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    folder.write("wallets.json", R"({"wallets":[]})");
    const Uses uses = registry_uses_of(folder, migrate_single_wallet);
    EXPECT_EQ(uses.held,
              (Names{"corvane_vaultry.json", "corvane_vaultry.json.moving", "wallets.json", "wallets.json.tmp"}));
    EXPECT_EQ(uses.free, Names{});
}

TEST(RegistryTurns, TheStartHoldsTheLockToItsEnd)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1"}]})");
    const Uses uses = registry_uses_of(folder, [] { bind_at_startup(".", "Brasslet"); });
    EXPECT_EQ(uses.held, (Names{"binds/_.json", "corvane_vaultry.json.moving", "wallets.json"}));
    EXPECT_EQ(uses.free, Names{});
    EXPECT_TRUE(folder.has("binds/_.json"));
}

TEST(RegistryTurns, BindRecordsWalletFilesAndHouseLabelsAreUsedWithoutTheLock)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    const Uses uses = registry_uses_of(folder, [] {
        bind_wallet("1");
        EXPECT_TRUE(load_wallet());
        EXPECT_TRUE(save_wallet());
        EXPECT_EQ(register_house_label("ann", "02ab", {}), "");
        EXPECT_EQ(set_house_avatar("02ab", "p_0"), "");
        unbind_wallet();
    });
    EXPECT_EQ(uses.held, Names{});
    EXPECT_TRUE(uses.free.contains(kWallet));
    EXPECT_TRUE(uses.free.contains("corvane_paymail.json"));
    EXPECT_TRUE(uses.free.contains("binds/c__tools_brasslet.json"));
}

TEST(WalletStateTurns, EveryQueryDoesAllUnderTheMutex)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}, {"ord_avatar", "p_0"}}));
    for (auto* const query :
         {+[] { EXPECT_TRUE(wallet_ready()); }, +[] { EXPECT_TRUE(wallet_address().has_value()); },
          +[] { EXPECT_TRUE(identity_pubkey().has_value()); }, +[] { EXPECT_NE(public_identity(), PublicIdentity()); },
          +[] { EXPECT_NE(wallet_paymail(), ""); }, +[] { refresh_identity(); }}) {
        const Uses uses = uses_of(folder, is_wallet_state_free, query);
        EXPECT_TRUE(uses.held.contains(kWallet));
        EXPECT_EQ(uses.free, Names{});
    }
}

TEST(WalletStateTurns, WhoHoldsTheMutexMayAskAllTheSame)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    const std::scoped_lock lock(wallet_state_mutex());
    EXPECT_TRUE(wallet_ready());
}
