// The kept names when file operations fail.
#include "paymail/kept_names.h"

#include "kit/stand_in/stand_in.h"
#include "kit/test_folder.h"

#include <gtest/gtest.h>

namespace {

using nlohmann::json;

constexpr char kFile[] = "payname/payname.json";
constexpr char kNames[] = R"({"names":[{"paymail":"a@x.org"}]})";

}  // namespace

TEST(KeptNamesFaults, AFileThatCannotBeReadNowIsNeitherWrittenOverNorDeleted)
{
    const TestFolder folder;
    folder.write(kFile, kNames);
    stand_in().files.reads_fail = true;
    EXPECT_EQ(load_paynames(), json::array());
    EXPECT_FALSE(keep_payname({"b@x.org", "key", "address"}));
    remove_payname("a@x.org");
    remove_payname("b@x.org");
    stand_in().files.reads_fail = false;
    EXPECT_EQ(folder.read(kFile), kNames);
}

TEST(KeptNamesFaults, AFileThatIsNotThereYetIsWrittenThoughNothingCanBeRead)
{
    const TestFolder folder;
    stand_in().files.reads_fail = true;
    EXPECT_TRUE(keep_payname({"b@x.org", "key", "address"}));
    stand_in().files.reads_fail = false;
    EXPECT_EQ(load_paynames().size(), 1U);
}

TEST(KeptNamesFaults, AFullDiskLeavesTheOldFile)
{
    const TestFolder folder;
    folder.write(kFile, kNames);
    stand_in().files.largest_file = sizeof kNames;
    EXPECT_FALSE(keep_payname({"b@x.org", "key", "address"}));
    EXPECT_EQ(folder.read(kFile), kNames);
}

TEST(KeptNamesFaults, AFileThatMayNotBeWrittenStaysAsItIs)
{
    const TestFolder folder;
    folder.write(kFile, kNames);
    stand_in().files.writes_fail = true;
    EXPECT_FALSE(save_paynames(json::array()));
    EXPECT_FALSE(keep_payname({"b@x.org", "key", "address"}));
    EXPECT_EQ(folder.read(kFile), kNames);
}

TEST(KeptNamesFaults, AnUnchangedFileIsNotWrittenAgain)
{
    const TestFolder folder;
    ASSERT_TRUE(keep_payname({"a@x.org", "key", "address"}));
    stand_in().files.written.clear();
    EXPECT_TRUE(keep_payname({"a@x.org", "key", "address"}));
    EXPECT_TRUE(stand_in().files.written.empty());
}
