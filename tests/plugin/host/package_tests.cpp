// Writing the package when the disk fails.
#include "plugin/package.h"

#include "kit/stand_in/stand_in.h"
#include "kit/test_folder.h"
#include "wallet_bridge/shared_files.h"

#include <gtest/gtest.h>

namespace {

constexpr char kZip[] = "payname/brasslet.zip";

void expect_old_zip_stays(const FileFaults& faults)
{
    const TestFolder folder;
    folder.write(kZip, "the old zip");
    stand_in().files = faults;
    EXPECT_FALSE(write_plugin_zip(plugin_package_path(), "the new plugin"));
    stand_in().files = {};
    EXPECT_EQ(folder.read(kZip), "the old zip");
    EXPECT_FALSE(folder.has("payname/brasslet.zip.tmp"));
}

}  // namespace

TEST(PackageFaults, AFullDiskLeavesTheOldZip)
{
    FileFaults faults;
    faults.largest_file = 100;
    expect_old_zip_stays(faults);
}

TEST(PackageFaults, AFolderThatCannotBeWrittenLeavesTheOldZip)
{
    FileFaults faults;
    faults.writes_fail = true;
    expect_old_zip_stays(faults);
}

TEST(PackageFaults, AZipThatCannotBeReplacedStays)
{
    FileFaults faults;
    faults.replaces_fail = true;
    expect_old_zip_stays(faults);
}
