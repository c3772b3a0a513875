// The move of an older wallet into the wallet list, refused or cut short at every step, and brought to its end by the
// next start: the wallet is never lost, never where nobody looks for it, and never without its seal.
#include "kit/stand_in/stand_in.h"
#include "kit/test_folder.h"
#include "text/json.h"
#include "wallet_bridge/migration.h"
#include "wallet_bridge/wallet_list.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

const char* const kOld = "corvane_vaultry.json";
const char* const kOldSeal = "corvane_vaultry.json.seal";
const char* const kMark = "corvane_vaultry.json.moving";
constexpr int kMoreStepsThanThereAre = 40;

struct Killed {};

void put_old_wallet(const TestFolder& folder)
{
    folder.write(kOld, "the wallet");
    folder.write(kOldSeal, "the seal");
    folder.write("wallets.json", R"({"theme":"dark","wallets":[]})");
}

std::string new_file(const std::string& id)
{
    return "wallets/" + id + "/wallet.json";
}

// As a wallet application finds it that looks at the wallet list and at the older file, or a next start at the mark.
void expect_nothing_lost(const TestFolder& folder, int step)
{
    const std::string id = folder.read(kMark);
    std::vector<std::string> places = {kOld};
    if (!id.empty()) places.push_back(new_file(id));
    for (const WalletEntry& entry : list_wallets())
        places.push_back(new_file(entry.id));
    const auto holds_wallet = [&folder](const std::string& place) { return folder.read(place) == "the wallet"; };
    EXPECT_TRUE(std::ranges::any_of(places, holds_wallet)) << "step " << step;
    for (const std::string& place : places)
        EXPECT_TRUE(!folder.has(place) || holds_wallet(place)) << place << ", step " << step;
    EXPECT_EQ(parse_json(folder.read("wallets.json"))["theme"], "dark") << "step " << step;
}

void expect_migrated(const TestFolder& folder, int step)
{
    const auto wallets = list_wallets();
    ASSERT_EQ(wallets.size(), 1U) << "step " << step;
    EXPECT_EQ(folder.read(new_file(wallets[0].id)), "the wallet") << "step " << step;
    EXPECT_EQ(folder.read(new_file(wallets[0].id) + ".seal"), "the seal") << "step " << step;
    EXPECT_EQ(parse_json(folder.read("wallets.json"))["active"], wallets[0].id) << "step " << step;
    EXPECT_EQ(folder.read(kMark), "") << "step " << step;
}

// `Fault` spoils the step of the number that it is given; true when there was such a step.
template <typename Fault>
void try_every_step(Fault fault)
{
    int step = 0;
    for (bool was_there = true; was_there; ++step) {
        const TestFolder folder;
        put_old_wallet(folder);
        was_there = fault(step);
        stand_in().files.on_use = nullptr;
        stand_in().files.refuses = nullptr;
        expect_nothing_lost(folder, step);
        migrate_single_wallet();
        expect_migrated(folder, step);
        ASSERT_LT(step, kMoreStepsThanThereAre);
    }
    EXPECT_GT(step, 5);
}

bool with_one_refusal(int step)
{
    int changes = 0;
    stand_in().files.refuses = [&changes, step](const std::string&) { return changes++ == step; };
    migrate_single_wallet();
    return changes > step;
}

bool with_refusals_from(int step)
{
    int changes = 0;
    stand_in().files.refuses = [&changes, step](const std::string&) { return changes++ >= step; };
    migrate_single_wallet();
    return changes > step;
}

bool with_a_kill_before(int step)
{
    int uses = 0;
    stand_in().files.on_use = [&uses, step](const std::string&) {
        if (uses++ == step) throw Killed();
    };
    try {
        migrate_single_wallet();
    } catch (const Killed&) {
        return true;
    }
    return false;
}

}  // namespace

TEST(MigrationFaults, AnyOneStepThatIsRefusedLosesNothing)
{
    try_every_step(with_one_refusal);
}

TEST(MigrationFaults, ADiskThatRefusesFromAnyStepOnLosesNothing)
{
    try_every_step(with_refusals_from);
}

TEST(MigrationFaults, AKillBetweenAnyTwoStepsLosesNothing)
{
    try_every_step(with_a_kill_before);
}

TEST(MigrationFaults, TheSameHoldsWhereFilesHaveToBeCopied)
{
    stand_in().files.renames_fail = true;
    try_every_step(with_one_refusal);
    try_every_step(with_refusals_from);
    try_every_step(with_a_kill_before);
}

TEST(MigrationFaults, WhenTheListCannotBeWrittenAllIsMovedBack)
{
    const TestFolder folder;
    put_old_wallet(folder);
    const std::string list = folder.read("wallets.json");
    stand_in().files.replaces_fail = true;
    migrate_single_wallet();
    EXPECT_EQ(folder.read(kOld), "the wallet");
    EXPECT_EQ(folder.read(kOldSeal), "the seal");
    EXPECT_EQ(folder.read("wallets.json"), list);
    EXPECT_FALSE(folder.has(kMark));
}

TEST(MigrationFaults, AHeldWalletIsMovedByTheNextStartThatMay)
{
    const TestFolder folder;
    put_old_wallet(folder);
    stand_in().files.refuses = [&folder](const std::string& path) { return path == folder.data() + "/" + kOld; };
    migrate_single_wallet();
    ASSERT_EQ(list_wallets().size(), 1U);
    EXPECT_EQ(folder.read(kOld), "the wallet");
    EXPECT_EQ(folder.read(kOldSeal), "the seal");
    stand_in().files.refuses = nullptr;
    migrate_single_wallet();
    expect_migrated(folder, 0);
}

TEST(MigrationFaults, AMarkThatCannotBeDeletedBringsNoDeletedWalletBack)
{
    const TestFolder folder;
    put_old_wallet(folder);
    const std::string mark = folder.data() + "/" + kMark;
    int changes = 0;
    stand_in().files.refuses = [&](const std::string& path) { return path == mark && ++changes == 2; };
    migrate_single_wallet();
    ASSERT_TRUE(folder.has(kMark));
    stand_in().files.refuses = nullptr;
    folder.write("wallets.json", R"({"wallets":[]})");
    migrate_single_wallet();
    EXPECT_TRUE(list_wallets().empty());
    EXPECT_FALSE(folder.has(kMark));
}

TEST(MigrationFaults, WithoutAMarkNothingMoves)
{
    const TestFolder folder;
    put_old_wallet(folder);
    const std::string list = folder.read("wallets.json");
    stand_in().files.refuses = [&folder](const std::string& path) { return path == folder.data() + "/" + kMark; };
    migrate_single_wallet();
    EXPECT_EQ(folder.read(kOld), "the wallet");
    EXPECT_EQ(folder.read(kOldSeal), "the seal");
    EXPECT_EQ(folder.read("wallets.json"), list);
    EXPECT_FALSE(folder.has("wallets"));
}

TEST(MigrationFaults, AnUnreadableMarkIsWaitedFor)
{
    const TestFolder folder;
    put_old_wallet(folder);
    folder.write(std::string(kMark) + "/in the way", "");
    migrate_single_wallet();
    EXPECT_EQ(folder.read(kOld), "the wallet");
    EXPECT_TRUE(list_wallets().empty());
}

TEST(MigrationFaults, ADamagedWalletListThatCannotBeKeptIsNotReplaced)
{
    const TestFolder folder;
    put_old_wallet(folder);
    folder.write("wallets.json", "{\"wallets\":[");
    stand_in().files.copies_fail = true;
    migrate_single_wallet();
    EXPECT_EQ(folder.read("wallets.json"), "{\"wallets\":[");
    EXPECT_EQ(folder.read(kOld), "the wallet");
}
