#include "platform/files.h"

#include "kit/child_process.h"
#include "kit/test_folder.h"

#include <gtest/gtest.h>

#include <random>
#include <thread>

TEST(Files, WhatIsWrittenIsRead)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/a b.json";
    const std::string bytes("first\r\nsecond\0third\x1a\xff", 21);
    ASSERT_TRUE(write_file(path, bytes));
    EXPECT_EQ(read_file(path), bytes);
    ASSERT_TRUE(write_file(path, "short"));
    EXPECT_EQ(read_file(path), "short");
    ASSERT_TRUE(write_file(path, ""));
    EXPECT_EQ(read_file(path), "");
}

TEST(Files, ALargeFileIsReadWhole)
{
    const TestFolder folder;
    const std::string bytes(3'000'000, 'x');
    ASSERT_TRUE(write_file(folder.path() + "/large", bytes));
    EXPECT_EQ(read_file(folder.path() + "/large"), bytes);
}

TEST(Files, AFolderOrAMissingFileCannotBeRead)
{
    const TestFolder folder;
    EXPECT_FALSE(read_file(folder.path()).has_value());
    EXPECT_FALSE(read_file(folder.path() + "/absent").has_value());
    EXPECT_FALSE(write_file(folder.path() + "/absent/file", "x"));
    EXPECT_FALSE(rewrite_in_place(folder.path() + "/absent/file", "x"));
}

TEST(Files, FoldersAreMadeWithAllTheirParentsWhateverSeparatesThem)
{
    const TestFolder folder;
    EXPECT_TRUE(create_folders(folder.path() + "\\one/two\\three"));
    EXPECT_EQ(file_status(folder.path() + "/one\\two/three"), FileStatus::exists);
    EXPECT_TRUE(create_folders(folder.path() + "\\one/two\\three"));
    ASSERT_TRUE(write_file(folder.path() + "/file", ""));
    EXPECT_FALSE(create_folders(folder.path() + "/file/below"));
    EXPECT_FALSE(create_folders(folder.path() + "/file"));
}

TEST(Files, AReadTellsMissingFromUnreadable)
{
    const TestFolder folder;
    folder.write("file", "text");
    folder.write("empty", "");
    EXPECT_EQ(read_whole_file(folder.data() + "/file").status, ReadStatus::read);
    EXPECT_EQ(read_whole_file(folder.data() + "/file").bytes, "text");
    EXPECT_EQ(read_whole_file(folder.data() + "/empty").status, ReadStatus::read);
    EXPECT_EQ(read_whole_file(folder.data() + "/other").status, ReadStatus::missing);
    EXPECT_EQ(read_whole_file(folder.data() + "/other/file").status, ReadStatus::missing);
    EXPECT_EQ(read_whole_file(folder.data()).status, ReadStatus::unreadable);
}

TEST(Files, RewritingAnExistingFileAsksOfWhatItHoldsAndMakesNone)
{
    const TestFolder folder;
    folder.write("file", "old text");
    const std::string path = folder.data() + "/file";
    EXPECT_FALSE(rewrite_existing(path, "new", [](std::string_view current) { return current == "other"; }));
    EXPECT_EQ(read_file(path), "old text");
    EXPECT_TRUE(rewrite_existing(path, "new", [](std::string_view current) { return current == "old text"; }));
    EXPECT_EQ(read_file(path), "new");
    EXPECT_FALSE(rewrite_existing(folder.data() + "/none", "new", [](std::string_view) { return true; }));
    EXPECT_FALSE(folder.has("none"));
}

TEST(Files, AMissingFileIsMissing)
{
    const TestFolder folder;
    EXPECT_EQ(file_status(folder.path() + "/absent"), FileStatus::missing);
    EXPECT_EQ(file_status(folder.path() + "/absent/file"), FileStatus::missing);
}

TEST(Files, TheParentOfAPathIsWhatStandsBeforeItsLastSeparator)
{
    EXPECT_EQ(parent_folder("C:\\Users/me\\file"), "C:\\Users/me");
    EXPECT_EQ(parent_folder("C:\\Users/file"), "C:\\Users");
    EXPECT_EQ(parent_folder("file"), "");
}

TEST(Files, ReplacingTakesTheNameAndRenamingDoesNot)
{
    const TestFolder folder;
    const std::string from = folder.path() + "/from";
    const std::string to = folder.path() + "/to";
    ASSERT_TRUE(write_file(from, "new"));
    ASSERT_TRUE(write_file(to, "old"));
    EXPECT_FALSE(rename_file(from, to));
    EXPECT_EQ(read_file(to), "old");
    EXPECT_TRUE(copy_file(from, to));
    EXPECT_EQ(read_file(to), "new");
    ASSERT_TRUE(write_file(from, "newer"));
    EXPECT_TRUE(replace_file(from, to));
    EXPECT_EQ(read_file(to), "newer");
    EXPECT_EQ(file_status(from), FileStatus::missing);
    EXPECT_FALSE(replace_file(from, to));
    EXPECT_TRUE(rename_file(to, from));
    EXPECT_TRUE(remove_file(from));
    EXPECT_FALSE(remove_file(from));
}

TEST(Files, RewritingInPlaceGivesTheTextAloneWhateverTheLengths)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/file";
    for (const char* text : {"[1,2]", "[1,2,3,4]", "[1]", "[2]"}) {
        ASSERT_TRUE(rewrite_in_place(path, text));
        EXPECT_EQ(read_file(path), text);
    }
    EXPECT_TRUE(update_in_place(path, "[2,3]"));
    EXPECT_EQ(read_file(path), "[2,3]");
}

// The text stays below one page of memory: that much, the kernels under test write as one, a kill or not.
TEST(Files, AWriterKilledAtAnyMomentLeavesTheOldOrTheNewText)
{
    const TestFolder folder;
    const std::string path = folder.path() + "/wallet.json";
    constexpr std::size_t kShort = 700;
    constexpr std::size_t kLong = 3000;
    const std::string old_text = "[" + std::string(kShort, '1') + "]";
    const std::string new_text = "[" + std::string(kLong, '2') + "]";
    ASSERT_TRUE(write_file(path, old_text));
    std::mt19937 random(1);
    int olds = 0;
    for (int kill = 0; kill < 200; ++kill) {
        ChildProcess writer({folder.path(), "rewrite", path, std::to_string(kShort), std::to_string(kLong)});
        ASSERT_EQ(writer.read_line(), "writing");
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 4000));
        writer.kill();
        std::string text = read_file(path).value_or("");
        text.erase(text.find_last_not_of(' ') + 1);
        ASSERT_TRUE(text == old_text || text == new_text) << "kill " << kill << ": " << text;
        olds += text == old_text ? 1 : 0;
    }
    EXPECT_GT(olds, 0);
    EXPECT_LT(olds, 200);
}
