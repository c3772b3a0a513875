#include "wallet_bridge/registry_lock.h"

#include "kit/child_process.h"
#include "kit/test_folder.h"
#include "platform/file_lock.h"
#include "platform/files.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <optional>
#include <thread>

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
