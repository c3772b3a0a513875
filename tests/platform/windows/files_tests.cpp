// Files that another process holds open while the program wants to change them.
#include "kit/child_process.h"
#include "kit/test_folder.h"
#include "kit/windows/replaced_import.h"
#include "platform/files.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/windows_path.h"

#include <gtest/gtest.h>

#include <functional>
#include <future>
#include <initializer_list>

namespace {

using SleepFunction = decltype(&Sleep);
using FlushFunction = decltype(&FlushFileBuffers);

constexpr DWORD kEveryShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

int pauses = 0;

void WINAPI note_pause(DWORD)
{
    ++pauses;
}

bool may_be_written(const std::string& path)
{
    return static_cast<bool>(UniqueHandle(
        CreateFileW(wide_path(path).c_str(), GENERIC_WRITE, kEveryShare, nullptr, OPEN_EXISTING, 0, nullptr)));
}

// As Windows answers for a read-only file, or one to which the user has no rights. Wine that is run by root does not.
using CreateFunction = decltype(&CreateFileW);
using DeleteFunction = decltype(&DeleteFileW);
CreateFunction original_create = nullptr;

HANDLE WINAPI deny_writing(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security, DWORD disposition,
                           DWORD flags, HANDLE pattern)
{
    if ((access & (GENERIC_WRITE | DELETE)) == 0)
        return original_create(path, access, share, security, disposition, flags, pattern);
    SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
}

BOOL WINAPI deny_deleting(LPCWSTR)
{
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
}

std::string flushed_path;  // looked at whenever a file is flushed
int flushes = 0;
int flushes_while_others_may_write = 0;

BOOL WINAPI note_flush(HANDLE)
{
    ++flushes;
    flushes_while_others_may_write += may_be_written(flushed_path) ? 1 : 0;
    return TRUE;
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

// The linker's variables for what this program imports.
extern "C" SleepFunction __imp_Sleep;             // NOLINT(bugprone-reserved-identifier)
extern "C" CreateFunction __imp_CreateFileW;      // NOLINT(bugprone-reserved-identifier)
extern "C" DeleteFunction __imp_DeleteFileW;      // NOLINT(bugprone-reserved-identifier)
extern "C" FlushFunction __imp_FlushFileBuffers;  // NOLINT(bugprone-reserved-identifier)

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
    pauses = 0;
    const ReplacedImport<SleepFunction> counted(__imp_Sleep, note_pause);
    EXPECT_FALSE(read_held_file(folder.path() + "/missing"));
    EXPECT_FALSE(read_held_file(folder.path()));  // a folder: access is denied
    EXPECT_EQ(pauses, 0);
}

TEST(SharedFiles, WhatWindowsDeniesForGoodIsNotWaitedFor)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/file";
    ASSERT_TRUE(write_file(path, "old"));
    for (const DWORD attributes : {DWORD{FILE_ATTRIBUTE_READONLY}, DWORD{FILE_ATTRIBUTE_NORMAL}}) {
        ASSERT_TRUE(SetFileAttributesW(wide_path(path).c_str(), attributes));
        pauses = 0;
        {
            const ReplacedImport<CreateFunction> denied(__imp_CreateFileW, deny_writing);
            const ReplacedImport<DeleteFunction> kept(__imp_DeleteFileW, deny_deleting);
            const ReplacedImport<SleepFunction> noted(__imp_Sleep, note_pause);
            original_create = denied.original();
            EXPECT_FALSE(write_file(path, "new"));
            EXPECT_FALSE(rewrite_in_place(path, "new"));
            EXPECT_FALSE(rewrite_existing(path, "new", [](std::string_view) { return true; }));
            EXPECT_FALSE(remove_file(path));
        }
        EXPECT_EQ(pauses, 0);
        EXPECT_EQ(read_file(path), "old");
    }
}

TEST(SharedFiles, AFolderInTheWayIsNotWaitedFor)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/folder";
    ASSERT_TRUE(create_folders(path));
    pauses = 0;
    {
        const ReplacedImport<SleepFunction> noted(__imp_Sleep, note_pause);
        EXPECT_FALSE(write_file(path, "new"));
        EXPECT_FALSE(rewrite_in_place(path, "new"));
        EXPECT_FALSE(remove_file(path));
    }
    EXPECT_EQ(pauses, 0);
}

TEST(SharedFiles, AFileThatIsHeldElsewhereIsTriedTenTimes)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/file";
    ASSERT_TRUE(write_file(path, "old"));
    ChildProcess other({folder.path(), "hold-alone", path});
    ASSERT_EQ(other.read_line(), "open");
    const ReplacedImport<SleepFunction> noted(__imp_Sleep, note_pause);
    for (const auto& change : std::initializer_list<std::function<bool()>>{
             [&] { return write_file(path, "new"); },
             [&] { return rewrite_in_place(path, "new"); },
             [&] { return rewrite_existing(path, "new", [](std::string_view) { return true; }); },
             [&] { return rename_file(path, path + "2"); },
             [&] { return remove_file(path); },
         }) {
        pauses = 0;
        EXPECT_FALSE(change());
        EXPECT_EQ(pauses, 9);
    }
}

TEST(SharedFiles, OthersMayWriteAgainWhileTheDiskIsWaitedFor)
{
    const TestFolder folder;
    flushed_path = folder.path() + "/file";
    ASSERT_TRUE(write_file(flushed_path, "old"));
    flushes = flushes_while_others_may_write = 0;
    const ReplacedImport<FlushFunction> noted(__imp_FlushFileBuffers, note_flush);
    EXPECT_TRUE(rewrite_in_place(flushed_path, "newer"));
    EXPECT_TRUE(rewrite_existing(flushed_path, "the newest", [](std::string_view) { return true; }));
    EXPECT_EQ(flushes, 2);
    EXPECT_EQ(flushes_while_others_may_write, 2);
}

TEST(SharedFiles, ACopyIsOnTheDiskWhenItIsMadeAndAnOrdinaryFile)
{
    const TestFolder folder;
    const std::string from = folder.path() + "/from";
    flushed_path = folder.path() + "/to";
    ASSERT_TRUE(write_file(from, "text"));
    ASSERT_TRUE(SetFileAttributesW(wide_path(from).c_str(), FILE_ATTRIBUTE_READONLY));
    flushes = flushes_while_others_may_write = 0;
    {
        const ReplacedImport<FlushFunction> noted(__imp_FlushFileBuffers, note_flush);
        EXPECT_TRUE(copy_file(from, flushed_path));
    }
    EXPECT_EQ(flushes_while_others_may_write, 1);
    EXPECT_TRUE(rewrite_in_place(flushed_path, "newer"));
    SetFileAttributesW(wide_path(from).c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(SharedFiles, NobodyWritesBetweenTheLookAtAFileAndItsRewriting)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/file";
    ASSERT_TRUE(write_file(path, "old"));
    const bool is_rewritten = rewrite_existing(path, "new", [&path](std::string_view current) {
        EXPECT_EQ(current, "old");
        EXPECT_FALSE(may_be_written(path));
        EXPECT_FALSE(DeleteFileW(wide_path(path).c_str()));
        EXPECT_EQ(read_file(path), "old");
        return true;
    });
    EXPECT_TRUE(is_rewritten);
    EXPECT_EQ(read_file(path), "new");
}

TEST(SharedFiles, AFileThatIsHeldIsUnreadableAndNotMissing)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/file";
    EXPECT_EQ(read_whole_file(path).status, ReadStatus::missing);
    ASSERT_TRUE(write_file(path, "text"));
    ChildProcess other({folder.path(), "hold-alone", path});
    ASSERT_EQ(other.read_line(), "open");
    EXPECT_EQ(read_whole_file(path).status, ReadStatus::unreadable);
    other.close_input();
    other.wait();
    EXPECT_EQ(read_whole_file(path).bytes, "text");
}

TEST(SharedFiles, AFileIsReadWhileAnotherProgramHasItOpenForWriting)
{
    const TestFolder folder;
    folder.write("file", "text");
    const std::string path = folder.data() + "/file";
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
