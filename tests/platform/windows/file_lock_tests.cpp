// The lock's place in the file, which the wallet application counts on: the first byte and no other.
#include "platform/file_lock.h"

#include "kit/test_folder.h"
#include "platform/files.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/windows_path.h"

#include <gtest/gtest.h>

#include <future>

namespace {

UniqueHandle opened(const std::string& path)
{
    return UniqueHandle(CreateFileW(wide_path(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                                    nullptr));
}

// Through a handle of its own, which counts as somebody else. Its lock ends with the handle.
bool lock_byte(const UniqueHandle& file, DWORD offset)
{
    OVERLAPPED place{};
    place.Offset = offset;
    return LockFileEx(file.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0;
}

bool is_byte_free(const std::string& path, DWORD offset)
{
    return lock_byte(opened(path), offset);
}

}  // namespace

TEST(FileLock, HoldsTheFirstByteAndNoOther)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/lock";
    {
        const FileLock lock(path);
        ASSERT_TRUE(lock.is_held());
        EXPECT_FALSE(is_byte_free(path, 0));
        EXPECT_TRUE(is_byte_free(path, 1));
    }
    EXPECT_TRUE(is_byte_free(path, 0));
}

TEST(FileLock, DoesNotWaitForTheOtherBytes)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/lock";
    const UniqueHandle other = opened(path);
    ASSERT_TRUE(lock_byte(other, 1));
    EXPECT_TRUE(FileLock(path).is_held());
}

TEST(FileLock, OthersMayReadAndWriteTheFileMeanwhileAndDeleteItAfterwards)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/lock";
    {
        const FileLock lock(path);
        EXPECT_TRUE(opened(path));
        EXPECT_FALSE(remove_file(path));
    }
    EXPECT_TRUE(remove_file(path));
}
