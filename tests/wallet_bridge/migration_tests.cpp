#include "wallet_bridge/migration.h"

#include "kit/child_process.h"
#include "kit/test_folder.h"
#include "text/clock.h"
#include "text/json.h"
#include "wallet_bridge/wallet_list.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <thread>

namespace {

const char* const kMark = "corvane_vaultry.json.moving";

// How often the process is killed, and after at most how many microseconds. A start takes long under Wine.
#ifdef _WIN32
constexpr int kKills = 60;
constexpr unsigned kLongestMove = 20'000;
#else
constexpr int kKills = 500;
constexpr unsigned kLongestMove = 4'000;
#endif

// What was kept of damaged registries.
std::vector<std::string> damaged_copies(const TestFolder& folder)
{
    std::vector<std::string> copies;
    const std::string data = folder.path() + "/Corvane";
    for (const auto& entry : std::filesystem::directory_iterator(std::u8string(data.begin(), data.end()))) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with("wallets.json.damaged-")) copies.push_back(folder.read(name));
    }
    return copies;
}

}  // namespace

TEST(Migration, MakesTheOldWalletTheFirstOfTheList)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    const auto before = milliseconds_since_epoch();
    migrate_single_wallet();
    const auto after = milliseconds_since_epoch();

    const auto wallets = list_wallets();
    ASSERT_EQ(wallets.size(), 1U);
    EXPECT_EQ(wallets[0].name, "Wallet 1");
    EXPECT_GE(std::stoll(wallets[0].id), before);
    EXPECT_LE(std::stoll(wallets[0].id), after);
    EXPECT_EQ(wallets[0].id.size(), 13U);
    EXPECT_EQ(folder.read("wallets/" + wallets[0].id + "/wallet.json"), "the wallet");
    EXPECT_FALSE(folder.has("corvane_vaultry.json"));
    EXPECT_EQ(parse_json(folder.read("wallets.json"))["active"], wallets[0].id);
}

TEST(Migration, WithoutAPlaceForTheWalletItStaysAndTheListGainsItsEntry)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    folder.write("wallets", "in the way");
    migrate_single_wallet();
    ASSERT_EQ(list_wallets().size(), 1U);
    EXPECT_EQ(list_wallets()[0].name, "Wallet 1");
    EXPECT_EQ(parse_json(folder.read("wallets.json"))["active"], list_wallets()[0].id);
    EXPECT_EQ(folder.read("corvane_vaultry.json"), "the wallet");
    EXPECT_EQ(folder.read("wallets"), "in the way");
}

TEST(Migration, KeepsWhatElseStandsInTheListButForTheActiveWallet)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    folder.write("wallets.json", R"({"active":"gone","theme":"dark","wallets":[]})");
    migrate_single_wallet();
    EXPECT_EQ(parse_json(folder.read("wallets.json"))["theme"], "dark");
    ASSERT_EQ(list_wallets().size(), 1U);
    EXPECT_EQ(parse_json(folder.read("wallets.json"))["active"], list_wallets()[0].id);
}

TEST(Migration, LeavesTheOldWalletAloneWhenTheListHoldsAnything)
{
    const TestFolder folder;
    for (const char* text : {R"({"wallets":[{"id":"1"}]})", R"({"wallets":["x"]})"}) {
        folder.write("corvane_vaultry.json", "the wallet");
        folder.write("wallets.json", text);
        migrate_single_wallet();
        EXPECT_EQ(folder.read("corvane_vaultry.json"), "the wallet");
        EXPECT_EQ(folder.read("wallets.json"), text);
    }
}

TEST(Migration, WithoutAnOldWalletNothingIsWritten)
{
    const TestFolder folder;
    migrate_single_wallet();
    EXPECT_FALSE(folder.has("wallets.json"));
    EXPECT_FALSE(folder.has("wallets"));
}

TEST(Migration, TakesTheSealOfTheOldWalletAlong)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    folder.write("corvane_vaultry.json.seal", "the seal");
    migrate_single_wallet();
    ASSERT_EQ(list_wallets().size(), 1U);
    EXPECT_EQ(folder.read("wallets/" + list_wallets()[0].id + "/wallet.json.seal"), "the seal");
    EXPECT_FALSE(folder.has("corvane_vaultry.json.seal"));
}

TEST(Migration, LeavesNoMarkBehind)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    migrate_single_wallet();
    EXPECT_FALSE(folder.has(kMark));
}

TEST(Migration, AFolderThatAMarkShowsEntersTheListWhateverThatHolds)
{
    const TestFolder folder;
    folder.write("wallets/17/wallet.json", "the wallet");
    folder.write("wallets.json", R"({"active":"18","wallets":[{"id":"18"}]})");
    folder.write(kMark, "17");
    migrate_single_wallet();
    ASSERT_EQ(list_wallets().size(), 2U);
    EXPECT_EQ(list_wallets()[1].id, "17");
    EXPECT_EQ(list_wallets()[1].name, "Wallet 1");
    EXPECT_EQ(parse_json(folder.read("wallets.json"))["active"], "18");
    EXPECT_FALSE(folder.has(kMark));
}

TEST(Migration, AFolderWithoutAMarkStaysAWalletThatIsDeleted)
{
    const TestFolder folder;
    folder.write("wallets/17/wallet.json", "the wallet");
    folder.write("wallets.json", R"({"wallets":[]})");
    migrate_single_wallet();
    EXPECT_EQ(folder.read("wallets.json"), R"({"wallets":[]})");
}

TEST(Migration, AMarkOfAMoveThatIsDoneGoesAndChangesNothing)
{
    const TestFolder folder;
    const std::string list = R"({"wallets":[{"id":"17"}]})";
    folder.write("wallets/17/wallet.json", "the wallet");
    folder.write("wallets.json", list);
    folder.write("corvane_vaultry.json", "of an older application, made since");
    folder.write(kMark, "17");
    migrate_single_wallet();
    EXPECT_EQ(folder.read("wallets.json"), list);
    EXPECT_EQ(folder.read("wallets/17/wallet.json"), "the wallet");
    EXPECT_EQ(folder.read("corvane_vaultry.json"), "of an older application, made since");
    EXPECT_FALSE(folder.has(kMark));
}

TEST(Migration, AMarkOfAWalletThatIsNowhereMakesNoEntry)
{
    const TestFolder folder;
    folder.write(kMark, "17");
    migrate_single_wallet();
    EXPECT_FALSE(folder.has("wallets.json"));
    EXPECT_FALSE(folder.has("wallets"));
    EXPECT_FALSE(folder.has(kMark));
}

TEST(Migration, AMarkThatIsNoIdNamesNoFolder)
{
    for (const char* mark : {"", "..", "../../x", "17\n", "one", "123456789012345678901", R"({"id":"17"})"}) {
        const TestFolder folder;
        folder.write("corvane_vaultry.json", "the wallet");
        folder.write(kMark, mark);
        migrate_single_wallet();
        ASSERT_EQ(list_wallets().size(), 1U) << mark;
        EXPECT_EQ(list_wallets()[0].id.size(), 13U) << mark;
        EXPECT_EQ(folder.read("wallets/" + list_wallets()[0].id + "/wallet.json"), "the wallet") << mark;
        EXPECT_FALSE(folder.has(kMark)) << mark;
    }
}

TEST(Migration, KeepsADamagedWalletListBesideTheNewOne)
{
    for (const char* text :
         {"{\"wallets\":[{\"id\":\"1\"", "[{\"id\":\"1\"}]", R"({"wallets":{"id":"1"}})", "\"1\"", " "}) {
        const TestFolder folder;
        folder.write("corvane_vaultry.json", "the wallet");
        folder.write("wallets.json", text);
        migrate_single_wallet();
        EXPECT_EQ(list_wallets().size(), 1U) << text;
        EXPECT_EQ(damaged_copies(folder), std::vector<std::string>{text});
    }
}

TEST(Migration, AnEmptyWalletListIsNotWorthKeeping)
{
    for (const char* text : {"", "{}", R"({"wallets":[]})"}) {
        const TestFolder folder;
        folder.write("corvane_vaultry.json", "the wallet");
        folder.write("wallets.json", text);
        migrate_single_wallet();
        EXPECT_EQ(list_wallets().size(), 1U) << text;
        EXPECT_TRUE(damaged_copies(folder).empty()) << text;
    }
}

TEST(Migration, KilledAtAnyMomentIsBroughtToItsEndByTheNextStart)
{
    std::mt19937 random(1);
    int cut_short = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        const TestFolder folder;
        folder.write("corvane_vaultry.json", "the wallet");
        folder.write("corvane_vaultry.json.seal", "the seal");
        ChildProcess other({folder.path(), "migrate"});
        ASSERT_EQ(other.read_line(), "migrating");
        std::this_thread::sleep_for(std::chrono::microseconds(random() % kLongestMove));
        other.kill();
        cut_short += folder.has(kMark) ? 1 : 0;
        migrate_single_wallet();
        ASSERT_EQ(list_wallets().size(), 1U) << "kill " << kill;
        const std::string file = "wallets/" + list_wallets()[0].id + "/wallet.json";
        ASSERT_EQ(folder.read(file), "the wallet") << "kill " << kill;
        ASSERT_EQ(folder.read(file + ".seal"), "the seal") << "kill " << kill;
        ASSERT_FALSE(folder.has(kMark)) << "kill " << kill;
    }
    EXPECT_GT(cut_short, 0);
}
