#include "kit/bound_wallet.h"
#include "kit/wallet_files.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/wallet_events.h"

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <string>

#ifdef _WIN32
#include <windows.h>
#else
#include "kit/stand_in/stand_in.h"

#include <cstdlib>
#endif

namespace {

// Twice the same: whichever runs second would find what the other left.
class StartingAfresh : public testing::TestWithParam<int> {};

#ifdef _WIN32

void set_variable()
{
    SetEnvironmentVariableW(L"BRASSLET_LEFT_BEHIND", L"1");
    SetEnvironmentVariableW(L"PATH", nullptr);
}

bool variables_are_fresh()
{
    return GetEnvironmentVariableW(L"BRASSLET_LEFT_BEHIND", nullptr, 0) == 0 &&
           GetEnvironmentVariableW(L"PATH", nullptr, 0) != 0;
}

#else

void set_variable()
{
    setenv("BRASSLET_LEFT_BEHIND", "1", 1);
    unsetenv("PATH");
}

bool variables_are_fresh()
{
    return std::getenv("BRASSLET_LEFT_BEHIND") == nullptr && std::getenv("PATH") != nullptr;
}

#endif

}  // namespace

TEST_P(StartingAfresh, NoTestFindsTheWalletThatAnotherBound)
{
    EXPECT_FALSE(wallet_binding().is_initialised);
    EXPECT_FALSE(is_wallet_loaded());
    const BoundWallet wallet;
    EXPECT_TRUE(wallet_binding().is_initialised);
    EXPECT_TRUE(is_wallet_loaded());
}

TEST_P(StartingAfresh, NoTestIsHeardByTheObserverOfAnother)
{
    static int heard = 0;
    const int before = heard;
    emit_event("status");
    emit_log("text");
    EXPECT_EQ(heard, before);
    set_event_sink([](const std::string&) { ++heard; });
    set_log_sink([](const std::string&) { ++heard; });
}

TEST_P(StartingAfresh, NoTestHasTheEnvironmentOfAnother)
{
    EXPECT_TRUE(variables_are_fresh());
    EXPECT_NE(std::filesystem::current_path(), std::filesystem::temp_directory_path());
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C");
    set_variable();
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    std::setlocale(LC_CTYPE, "");
}

#ifndef _WIN32

TEST_P(StartingAfresh, NoTestMeetsTheFaultsOfAnother)
{
    EXPECT_FALSE(stand_in().files.reads_fail);
    EXPECT_TRUE(stand_in().srv_queries.empty());
    stand_in().files.reads_fail = true;
    stand_in().srv_queries.emplace_back("corvane.example");
}

#endif

INSTANTIATE_TEST_SUITE_P(Twice, StartingAfresh, testing::Values(1, 2));
