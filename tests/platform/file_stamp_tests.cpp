#include "platform/file_stamp.h"

#include "kit/test_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

constexpr std::int64_t kSecond = 10'000'000;

// Of a file that was written an hour before it was asked about.
FileStamp settled_stamp()
{
    FileStamp stamp;
    stamp.status = FileStatus::exists;
    stamp.size = 7;
    stamp.made = 1'000 * kSecond;
    stamp.written = 2'000 * kSecond;
    stamp.attributes = 32;
    stamp.asked = stamp.written + 3'600 * kSecond;
    return stamp;
}

FileStamp asked_later(FileStamp stamp)
{
    stamp.asked += kSecond;
    return stamp;
}

FileStamp of_status(FileStatus status)
{
    FileStamp stamp;
    stamp.status = status;
    return stamp;
}

class FileStamps : public testing::Test {
protected:
    FileStamps()
    {
        folder.write("file", "first");
        folder.age("file");
        before = stamp();
    }
    FileStamp stamp() const { return file_stamp(folder.data() + "/file"); }
    bool is_noticed() const { return !is_unchanged(before, stamp()); }

    TestFolder folder;
    FileStamp before;
};

}  // namespace

TEST(FileStamp, OfAFileThatStaysAsItIsIsUnchanged)
{
    EXPECT_TRUE(is_unchanged(settled_stamp(), settled_stamp()));
    EXPECT_TRUE(is_unchanged(settled_stamp(), asked_later(settled_stamp())));
}

TEST(FileStamp, EveryDifferenceCounts)
{
    for (void (*const change)(FileStamp&) : {
             +[](FileStamp& stamp) { ++stamp.size; },
             +[](FileStamp& stamp) { ++stamp.made; },
             +[](FileStamp& stamp) { ++stamp.written; },
             +[](FileStamp& stamp) { --stamp.written; },
             +[](FileStamp& stamp) { ++stamp.attributes; },
             +[](FileStamp& stamp) { stamp.status = FileStatus::missing; },
             +[](FileStamp& stamp) { stamp.status = FileStatus::unknown; },
         }) {
        FileStamp now = asked_later(settled_stamp());
        change(now);
        EXPECT_FALSE(is_unchanged(settled_stamp(), now));
        EXPECT_FALSE(is_unchanged(now, asked_later(settled_stamp())));
    }
}

TEST(FileStamp, OfAFileThatWasJustWrittenProvesNothing)
{
    FileStamp young = settled_stamp();
    young.asked = young.written + 3 * kSecond - 1;
    EXPECT_FALSE(is_unchanged(young, asked_later(young)));
    ++young.asked;
    EXPECT_TRUE(is_unchanged(young, asked_later(young)));
}

TEST(FileStamp, OfAFileFromTheFutureProvesNothing)
{
    FileStamp stamp = settled_stamp();
    stamp.written = stamp.asked + kSecond;
    EXPECT_FALSE(is_unchanged(stamp, asked_later(stamp)));
}

TEST(FileStamp, ProvesNothingAfterTheClockWasSetBack)
{
    EXPECT_FALSE(is_unchanged(asked_later(settled_stamp()), settled_stamp()));
}

TEST(FileStamp, OfAMissingFileIsUnchangedWhileItStaysMissing)
{
    EXPECT_TRUE(is_unchanged(of_status(FileStatus::missing), of_status(FileStatus::missing)));
    EXPECT_FALSE(is_unchanged(of_status(FileStatus::missing), of_status(FileStatus::unknown)));
    EXPECT_FALSE(is_unchanged(of_status(FileStatus::unknown), of_status(FileStatus::missing)));
}

TEST(FileStamp, OfAQuestionThatFailedEqualsNone)
{
    EXPECT_FALSE(is_unchanged(FileStamp(), FileStamp()));
    EXPECT_FALSE(is_unchanged(FileStamp(), settled_stamp()));
}

TEST_F(FileStamps, AnUntouchedFileIsUnchangedAlsoWhenItWasReadMeanwhile)
{
    EXPECT_EQ(before.status, FileStatus::exists);
    EXPECT_EQ(before.size, 5U);
    EXPECT_EQ(folder.read("file"), "first");
    EXPECT_FALSE(is_noticed());
}

TEST_F(FileStamps, AChangeIsNoticedAlsoOfTheSameSize)
{
    folder.write("file", "other");
    EXPECT_TRUE(is_noticed());
    before = stamp();
    EXPECT_TRUE(is_noticed());  // written a moment ago
    folder.age("file");
    before = stamp();
    EXPECT_FALSE(is_noticed());
    ASSERT_TRUE(rewrite_in_place(folder.data() + "/file", "third"));
    EXPECT_TRUE(is_noticed());
}

TEST_F(FileStamps, AFileThatIsMovedOverItIsNoticedThoughItIsAsLargeAndOld)
{
    folder.write("other", "other");
    folder.age("other");
    folder.age("other");
    ASSERT_TRUE(replace_file(folder.data() + "/other", folder.data() + "/file"));
    EXPECT_TRUE(is_noticed());
}

TEST_F(FileStamps, ADeletedFileIsMissingAndAFolderInItsPlaceIsNoticed)
{
    ASSERT_TRUE(remove_file(folder.data() + "/file"));
    EXPECT_EQ(stamp().status, FileStatus::missing);
    EXPECT_TRUE(is_noticed());
    before = stamp();
    EXPECT_FALSE(is_noticed());
    ASSERT_TRUE(create_folders(folder.data() + "/file"));
    EXPECT_TRUE(is_noticed());
}

TEST_F(FileStamps, BelowAFileOrAMissingFolderIsNoFile)
{
    EXPECT_EQ(file_stamp(folder.data() + "/file/below").status, FileStatus::missing);
    EXPECT_EQ(file_stamp(folder.data() + "/none/below").status, FileStatus::missing);
}
