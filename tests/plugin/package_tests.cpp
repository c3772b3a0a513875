#include "plugin/package.h"

#include "kit/test_folder.h"
#include "platform/files.h"
#include "plugin/zip_file.h"

#include <gtest/gtest.h>

namespace {

constexpr char kZip[] = "payname/brasslet.zip";

}  // namespace

TEST(Package, LiesInTheFolderOfTheSettingsWhichIsMade)
{
    const TestFolder folder;
    EXPECT_EQ(plugin_zip_path(), folder.data() + "/payname/brasslet.zip");
    EXPECT_EQ(file_status(folder.data() + "/payname"), FileStatus::exists);
}

TEST(Package, HoldsThePluginUnderItsPath)
{
    const TestFolder folder;
    EXPECT_TRUE(write_plugin_zip(plugin_zip_path(), "<?php // the plugin"));
    EXPECT_EQ(folder.read(kZip), stored_zip("brasslet/brasslet.php", "<?php // the plugin"));
    EXPECT_FALSE(folder.has("payname/brasslet.zip.tmp"));
}

TEST(Package, ReplacesTheOneBefore)
{
    const TestFolder folder;
    EXPECT_TRUE(write_plugin_zip(plugin_zip_path(), "the first plugin, which is longer"));
    EXPECT_TRUE(write_plugin_zip(plugin_zip_path(), "the second plugin"));
    EXPECT_EQ(folder.read(kZip), stored_zip("brasslet/brasslet.php", "the second plugin"));
}

TEST(Package, CannotBeWrittenIntoAFolderThatIsMissing)
{
    const TestFolder folder;
    EXPECT_FALSE(write_plugin_zip(folder.data() + "/absent/brasslet.zip", "the plugin"));
}
