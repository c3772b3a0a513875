// What guards the state of the process, and a new beginning of it.
#include "wallet_bridge/wallet_state.h"

#include "kit/wallet_files.h"
#include "wallet_bridge/afresh.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/wallet_identity.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>
#include <type_traits>

namespace {

template <typename Held>
concept GivesAWallet = requires(Held held)
{
    std::forward<Held>(held)->wallet;
};

template <typename Held>
concept GivesAReference = requires(Held held)
{
    *std::forward<Held>(held);
};

}  // namespace

TEST(WalletState, TheProofOfTheLockIsNeitherCopiedNorMoved)
{
    EXPECT_FALSE(std::is_copy_constructible_v<HeldWallet>);
    EXPECT_FALSE(std::is_move_constructible_v<HeldWallet>);
    EXPECT_FALSE(std::is_copy_assignable_v<HeldWallet>);
    EXPECT_FALSE(std::is_move_assignable_v<HeldWallet>);
}

TEST(WalletState, WhatDiesAtTheEndOfTheLineGivesNothingThatOutlivesIt)
{
    EXPECT_TRUE(GivesAWallet<HeldWallet&>);
    EXPECT_TRUE(GivesAReference<HeldWallet&>);
    EXPECT_FALSE(GivesAWallet<HeldWallet&&>);
    EXPECT_FALSE(GivesAReference<HeldWallet&&>);
}

TEST(WalletState, IsHeldByOneThreadAtATime)
{
    int count = 0;
    const auto add = [&count] {
        for (int i = 0; i < 1000; ++i) {
            HeldWallet held = hold_wallet();
            const int seen = count;
            std::this_thread::yield();
            count = seen + 1;
        }
    };
    std::thread first(add);
    std::thread second(add);
    first.join();
    second.join();
    EXPECT_EQ(count, 2000);
}

TEST(WalletState, IsFreeAsSoonAsNobodyHoldsIt)
{
    const auto is_free = [] {
        return std::async(std::launch::async, [] { return wallet_state().wallet.is_free(); }).get();
    };
    EXPECT_TRUE(is_free());
    {
        HeldWallet held = hold_wallet();
        EXPECT_FALSE(is_free());
    }
    EXPECT_TRUE(is_free());
}

TEST(WalletState, AfreshItKnowsNothingOfBefore)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    int lines = 0;
    set_event_sink([&lines](const std::string&) { ++lines; });
    set_log_sink([&lines](const std::string&) { ++lines; });
    ASSERT_TRUE(wallet_ready());
    ASSERT_TRUE(is_wallet_loaded());

    start_wallet_state_afresh();
    EXPECT_FALSE(wallet_binding().is_initialised);
    EXPECT_EQ(wallet_binding().instance + wallet_binding().app, "");
    EXPECT_EQ(bound_wallet_id(), "");
    emit_event("status");
    emit_log("text");
    EXPECT_EQ(lines, 0);
    HeldWallet held = hold_wallet();
    EXPECT_FALSE(held->wallet);
    EXPECT_EQ(held->id + held->path, "");
    EXPECT_TRUE(folder.has("binds/c__tools_brasslet.json"));
}

TEST(WalletState, AfreshItCanBeStartedAgain)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    start_wallet_state_afresh();
    EXPECT_FALSE(wallet_ready());
    bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
    EXPECT_TRUE(wallet_ready());
}
