#include "wallet_bridge/wallet_list.h"

#include "kit/child_process.h"
#include "kit/test_folder.h"
#include "platform/file_lock.h"
#include "platform/files.h"
#include "text/json.h"

#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <optional>

#include <random>
#include <thread>

namespace {

// The sanitizers of the native build watch every byte of every document, which takes its time.
#ifdef _WIN32
constexpr int kEntries = 1000;
#else
constexpr int kEntries = 150;
#endif

const nlohmann::json kNoWallets = {{"wallets", nlohmann::json::array()}};

}  // namespace

TEST(WalletList, AMissingFileReadsAsNoWallets)
{
    const TestFolder folder;
    EXPECT_EQ(read_registry(RegistryLock{}), kNoWallets);
}

TEST(WalletList, WhatIsNoListReadsAsNoWallets)
{
    const TestFolder folder;
    for (const std::string& text :
         {std::string(), std::string("garbage"), std::string("[{\"id\":\"1\"}]"), std::string("{\"wallets\": {}}"),
          std::string("{} {}"), std::string("7"), "{\"wallets\":" + std::string(100'000, '[')}) {
        folder.write("wallets.json", text);
        EXPECT_EQ(read_registry(RegistryLock{}), kNoWallets) << text.substr(0, 40);
    }
}

TEST(WalletList, OtherMembersSurviveARewrite)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"theme":{"dark":true},"wallets":[{"id":"1","name":"A","colour":"red"},"x",7]})");
    set_registry_name_from_paymail("1", "ann");
    EXPECT_EQ(parse_json(folder.read("wallets.json")),
              parse_json(R"({"theme":{"dark":true},"wallets":[{"id":"1","name":"ann","colour":"red"},"x",7]})"));
}

TEST(WalletList, IsWrittenWithAnIndentOfTwoAndSortedKeys)
{
    const TestFolder folder;
    EXPECT_TRUE(write_registry(RegistryLock{}, {{"wallets", {{{"name", "A"}, {"id", "1"}}}}, {"active", "1"}}));
    EXPECT_EQ(folder.read("wallets.json"), "{\n  \"active\": \"1\",\n  \"wallets\": [\n    {\n      \"id\": \"1\",\n"
                                           "      \"name\": \"A\"\n    }\n  ]\n}");
    EXPECT_FALSE(folder.has("wallets.json.tmp"));
}

TEST(WalletList, AStaleTemporaryFileIsReused)
{
    const TestFolder folder;
    folder.write("wallets.json.tmp", "left by a process that was killed, and longer than what is written now");
    EXPECT_TRUE(write_registry(RegistryLock{}, {{"wallets", nlohmann::json::array()}}));
    EXPECT_EQ(folder.read("wallets.json"), "{\n  \"wallets\": []\n}");
    EXPECT_FALSE(folder.has("wallets.json.tmp"));
}

TEST(WalletList, AFailedReplaceLeavesTheOldFileAndNoTemporaryFile)
{
    const TestFolder folder;
    folder.write("wallets.json/in the way", "");
    EXPECT_FALSE(write_registry(RegistryLock{}, {{"wallets", nlohmann::json::array()}}));
    EXPECT_TRUE(folder.has("wallets.json/in the way"));
    EXPECT_FALSE(folder.has("wallets.json.tmp"));
}

TEST(WalletList, ListsWalletsInOrderByNameOrElseId)
{
    const TestFolder folder;
    folder.write("wallets.json",
                 R"({"wallets":[{"id":"2","name":"B"},{"id":"x"},{"id":"y","name":""},{"id":""},{"name":"no id"},
                     "a text",7,null,[],{"id":5},{"id":"1","name":3}]})");
    const auto wallets = list_wallets();
    ASSERT_EQ(wallets.size(), 4U);
    EXPECT_EQ(wallets[0].id + wallets[0].name, "2B");
    EXPECT_EQ(wallets[1].id + wallets[1].name, "xx");
    EXPECT_EQ(wallets[2].id + wallets[2].name, "yy");
    EXPECT_EQ(wallets[3].id + wallets[3].name, "11");
}

TEST(WalletList, TheFirstEntryWithAnIdGivesTheName)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1","name":"A"},{"id":"1","name":"B"}]})");
    EXPECT_EQ(wallet_display_name("1"), "A");
    EXPECT_EQ(wallet_display_name("2"), "2");
}

TEST(WalletList, APaymailNamesTheFirstEntryWithItsId)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"0"},{"id":"1","name":"A"},{"id":"1","name":"B"}]})");
    set_registry_name_from_paymail("1", "ann");
    EXPECT_EQ(parse_json(folder.read("wallets.json")),
              parse_json(R"({"wallets":[{"id":"0"},{"id":"1","name":"ann"},{"id":"1","name":"B"}]})"));
}

TEST(WalletList, NamingAnUnknownWalletOrWithoutANameWritesNothing)
{
    const TestFolder folder;
    const std::string text = R"({"wallets":[{"id":"1"},{"id":""}]})";
    folder.write("wallets.json", text);
    set_registry_name_from_paymail("2", "ann");
    set_registry_name_from_paymail("1", "");
    set_registry_name_from_paymail("", "ann");
    EXPECT_EQ(folder.read("wallets.json"), text);
    ASSERT_TRUE(remove_file(folder.data() + "/wallets.json"));
    set_registry_name_from_paymail("1", "ann");
    EXPECT_FALSE(folder.has("wallets.json"));
}

TEST(WalletList, TwoProcessesThatAddEntriesLoseNone)
{
    const TestFolder folder;
    ChildProcess first({folder.path(), "add-entries", "a", std::to_string(kEntries)});
    ChildProcess second({folder.path(), "add-entries", "b", std::to_string(kEntries)});
    EXPECT_EQ(first.wait(), 0);
    EXPECT_EQ(second.wait(), 0);
    int first_count = 0;
    int second_count = 0;
    for (const WalletEntry& wallet : list_wallets())
        ++(wallet.id[0] == 'a' ? first_count : second_count);
    EXPECT_EQ(first_count, kEntries);
    EXPECT_EQ(second_count, kEntries);
}

TEST(WalletList, AWriterKilledAtAnyMomentLeavesTheOldOrTheNewList)
{
    const TestFolder folder;
    constexpr std::size_t kWallets = 100;
    std::mt19937 random(1);
    int registries_with_a = 0;
    for (int kill = 0; kill < 200; ++kill) {
        ChildProcess writer({folder.path(), "write-wallet-list", std::to_string(kWallets)});
        ASSERT_EQ(writer.read_line(), "writing");
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 8000));
        writer.kill();
        const auto list = parse_json(folder.read("wallets.json"));
        ASSERT_TRUE(list.is_object()) << "kill " << kill << ": " << folder.read("wallets.json");
        ASSERT_EQ(list["wallets"].size(), kWallets);
        const auto name = list["wallets"][0]["name"];
        EXPECT_EQ(list["wallets"][kWallets - 1]["name"], name);
        registries_with_a += name == std::string(20, 'a') ? 1 : 0;
    }
    EXPECT_GT(registries_with_a, 0);
    EXPECT_LT(registries_with_a, 200);
}

TEST(WalletList, DigitsOfOtherMembersStayAsTheyStand)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1","name":"old","order":123456789012345678901234567890}],)"
                                 R"("scale":0.10,"power":1E+2,"minus":-0})");
    set_registry_name_from_paymail("1", "ann");
    EXPECT_EQ(folder.read("wallets.json"), R"({
  "minus": -0,
  "power": 1E+2,
  "scale": 0.10,
  "wallets": [
    {
      "id": "1",
      "name": "ann",
      "order": 123456789012345678901234567890
    }
  ]
})");
}

TEST(RegistryLock, MakesAnEmptyLockFileAndLeavesIt)
{
    const TestFolder folder;
    {
        const RegistryLock lock;
        EXPECT_TRUE(folder.has("wallets.lock"));
    }
    EXPECT_TRUE(folder.has("wallets.lock"));
    EXPECT_EQ(folder.read("wallets.lock"), "");
}

TEST(RegistryLock, OpensTheLockFileAsItStandsAndClosesIt)
{
    const TestFolder folder;
    folder.write("wallets.lock", "a word of another program");
    {
        const RegistryLock lock;
    }
    EXPECT_EQ(folder.read("wallets.lock"), "a word of another program");
    EXPECT_TRUE(remove_file(folder.data() + "/wallets.lock"));
}

TEST(RegistryLock, AThreadMayTakeItAgainAndTheOutermostReleaseGivesTheFileBack)
{
    const TestFolder folder;
    std::optional<RegistryLock> outer(std::in_place);
    {
        const RegistryLock inner;
    }
    ChildProcess other({folder.path(), "hold-lock"});
    auto line = std::async(std::launch::async, [&other] { return other.read_line(); });
    EXPECT_EQ(line.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout);
    outer.reset();
    EXPECT_EQ(line.get(), "held");
}

TEST(RegistryLock, WaitsForTheOtherProcess)
{
    const TestFolder folder;
    ChildProcess other({folder.path(), "hold-lock"});
    ASSERT_EQ(other.read_line(), "held");
    std::atomic<bool> asked_to_release = false;
    auto waiting = std::async(std::launch::async, [&asked_to_release] {
        const RegistryLock lock;
        return asked_to_release.load();
    });
    EXPECT_EQ(waiting.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout);
    asked_to_release = true;
    other.close_input();
    EXPECT_TRUE(waiting.get());
    EXPECT_EQ(other.wait(), 0);
}

TEST(RegistryLock, TheDeathOfItsHolderReleasesIt)
{
    const TestFolder folder;
    ChildProcess other({folder.path(), "hold-lock"});
    ASSERT_EQ(other.read_line(), "held");
    other.kill();
    const RegistryLock lock;
    EXPECT_TRUE(folder.has("wallets.lock"));
}

TEST(RegistryLock, ThreadsTakeTurnsEvenWithoutALockFile)
{
    const TestFolder folder;
    folder.write("wallets.lock/in the way", "");
    int count = 0;
    const auto add = [&count] {
        for (int i = 0; i < 1000; ++i) {
            const RegistryLock lock;
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

TEST(FileLock, IsNotHeldWhenTheFileCannotBeOpened)
{
    const TestFolder folder;
    EXPECT_FALSE(FileLock(folder.path() + "/absent/file").is_held());
    EXPECT_TRUE(FileLock(folder.path() + "/file").is_held());
}
