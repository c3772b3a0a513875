// Files that another process holds open while the program wants to change them.
#include "platform/files.h"
#include "platform/unique_handle.h"
#include "platform/windows_path.h"
#include "support/child_process.h"
#include "support/test_folder.h"
#include "wallet_bridge/migration.h"
#include "wallet_bridge/wallet_registry.h"
#include "windows/replaced_import.h"

#include <gtest/gtest.h>

#include <future>

using SleepFunction = void(WINAPI*)(DWORD);
extern "C" SleepFunction __imp_Sleep;

namespace {

int sleeps = 0;

void WINAPI count_sleep(DWORD)
{
    ++sleeps;
}

// Has another process hold `name`, tries `change`, and lets the file go when the change has been refused at least once.
template <typename Change>
bool succeeds_once_the_file_is_free(const std::string& path, const TestFolder& folder, Change change)
{
    ChildProcess other({folder.path(), "hold-open", path});
    EXPECT_EQ(other.read_line(), "open");
    auto changing = std::async(std::launch::async, change);
    EXPECT_EQ(changing.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
    other.close_input();
    return changing.get();
}

}  // namespace

TEST(SharedFiles, ReplacingTriesAgainWhileTheTargetIsOpenElsewhere)
{
    const TestFolder folder;
    const std::string from = folder.path() + "/from";
    const std::string to = folder.path() + "/to";
    ASSERT_TRUE(write_file(from, "new"));
    ASSERT_TRUE(write_file(to, "old"));
    EXPECT_TRUE(succeeds_once_the_file_is_free(to, folder, [&] { return replace_file(from, to); }));
    EXPECT_EQ(read_file(to), "new");
}

TEST(SharedFiles, ReplacingGivesUpInTheEnd)
{
    const TestFolder folder;
    const std::string from = folder.path() + "/from";
    const std::string to = folder.path() + "/to";
    ASSERT_TRUE(write_file(from, "new"));
    ASSERT_TRUE(write_file(to, "old"));
    ChildProcess other({folder.path(), "hold-open", to});
    ASSERT_EQ(other.read_line(), "open");
    EXPECT_FALSE(replace_file(from, to));
    EXPECT_EQ(read_file(to), "old");
}

TEST(SharedFiles, RewritingTriesAgainWhileTheFileIsOpenElsewhere)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/file";
    ASSERT_TRUE(write_file(path, "old"));
    EXPECT_TRUE(succeeds_once_the_file_is_free(path, folder, [&] { return rewrite_in_place(path, "newer"); }));
    EXPECT_EQ(read_file(path), "newer");
}

TEST(SharedFiles, AFileThatAnotherProgramKeepsToItselfIsReadOnceItIsFree)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/file";
    ASSERT_TRUE(write_file(path, "text"));
    ChildProcess other({folder.path(), "hold-alone", path});
    ASSERT_EQ(other.read_line(), "open");
    EXPECT_FALSE(read_file(path));
    auto reading = std::async(std::launch::async, [&] { return read_held_file(path); });
    EXPECT_EQ(reading.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
    other.close_input();
    EXPECT_EQ(reading.get(), "text");
}

TEST(SharedFiles, AFileThatIsMissingOrRefusedIsNotWaitedFor)
{
    const TestFolder folder;
    sleeps = 0;
    const ReplacedImport<SleepFunction> counted(__imp_Sleep, count_sleep);
    EXPECT_FALSE(read_held_file(folder.path() + "/missing"));
    EXPECT_FALSE(read_held_file(folder.path()));  // a folder: access is denied
    EXPECT_EQ(sleeps, 0);
}

TEST(SharedFiles, AnOldWalletThatIsLockedElsewhereStaysAndTheRegistryGainsItsEntry)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    {
        ChildProcess other({folder.path(), "hold-alone", folder.data() + "/corvane_vaultry.json"});
        ASSERT_EQ(other.read_line(), "open");
        migrate_single_wallet();
    }
    ASSERT_EQ(list_wallets().size(), 1U);
    EXPECT_EQ(list_wallets()[0].name, "Wallet 1");
    EXPECT_FALSE(folder.has("wallets/" + list_wallets()[0].id + "/wallet.json"));
    EXPECT_EQ(folder.read("corvane_vaultry.json"), "the wallet");
}

TEST(SharedFiles, ARegistryThatIsLockedElsewhereIsNotTakenForAnEmptyOne)
{
    const TestFolder folder;
    const std::string registry = R"({"wallets":[{"id":"1"}]})";
    folder.write("corvane_vaultry.json", "the wallet");
    folder.write("wallets.json", registry);
    {
        ChildProcess other({folder.path(), "hold-alone", folder.data() + "/wallets.json"});
        ASSERT_EQ(other.read_line(), "open");
        migrate_single_wallet();
    }
    EXPECT_EQ(folder.read("wallets.json"), registry);
    EXPECT_EQ(folder.read("corvane_vaultry.json"), "the wallet");
}

TEST(SharedFiles, AFileIsReadWhileAnotherProgramHasItOpenForWriting)
{
    const TestFolder folder;
    folder.write("file", "text");
    const std::string path = folder.data() + "/file";
    constexpr DWORD kEveryShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const UniqueHandle writer(
        CreateFileW(wide_path(path).c_str(), GENERIC_WRITE | DELETE, kEveryShare, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(writer);
    EXPECT_EQ(read_file(path), "text");
}

TEST(SharedFiles, AFileAboveTheLargestSizeIsNotRead)
{
    const TestFolder folder;
    folder.write("file", "text");
    const std::string path = folder.data() + "/file";
    UniqueHandle file(CreateFileW(wide_path(path).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    LARGE_INTEGER beyond{};
    beyond.QuadPart = 64LL * 1024 * 1024 + 1;
    ASSERT_TRUE(SetFilePointerEx(file.get(), beyond, nullptr, FILE_BEGIN) && SetEndOfFile(file.get()));
    ASSERT_TRUE(file.close());
    EXPECT_FALSE(read_file(path).has_value());
}
