#include "plugin/package.h"

#include "kit/test_folder.h"
#include "wallet_bridge/shared_files.h"

#include <gtest/gtest.h>

#include <string>

TEST(Crc32, OfNothingIsZero)
{
    EXPECT_EQ(crc32(""), 0U);
}

// The check value of CRC-32/ISO-HDLC in catalogues of CRCs.
TEST(Crc32, GivesTheCheckValue)
{
    EXPECT_EQ(crc32("123456789"), 0xCBF43926U);
}

TEST(Crc32, TakesEveryByteAsItIs)
{
    EXPECT_EQ(crc32(std::string_view("\0", 1)), 0xD202EF8DU);
    EXPECT_EQ(crc32("\xFF"), 0xFF000000U);
    EXPECT_EQ(crc32(std::string(32, '\xFF')), 0xFF6CAB0BU);
}

namespace {

constexpr char kName[] = "brasslet/brasslet.php";

}  // namespace

TEST(ZipFile, HasEveryFieldOfTheClassicFormat)
{
    using namespace std::string_literals;
    EXPECT_EQ(stored_zip(kName, "123456789"), "PK\x03\x04"
                                              "\x14\0\0\0\0\0\0\0\0\0"
                                              "\x26\x39\xF4\xCB\x09\0\0\0\x09\0\0\0"
                                              "\x15\0\0\0brasslet/brasslet.php"
                                              "123456789"
                                              "PK\x01\x02"
                                              "\x14\0\x14\0\0\0\0\0\0\0\0\0"
                                              "\x26\x39\xF4\xCB\x09\0\0\0\x09\0\0\0"
                                              "\x15\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0brasslet/brasslet.php"
                                              "PK\x05\x06"
                                              "\0\0\0\0\x01\0\x01\0\x43\0\0\0\x3C\0\0\0\0\0"s);
}

TEST(ZipFile, IsAsLongAsItsDataAnd140Bytes)
{
    for (const std::size_t size : {0U, 1U, 255U, 256U, 65'535U, 65'536U, 100'000U})
        EXPECT_EQ(stored_zip(kName, std::string(size, '<')).size(), size + 140);
}

TEST(ZipFile, SaysLongLengthsAndOffsetsInFull)
{
    using namespace std::string_literals;
    const std::string zip = stored_zip(kName, std::string(0x12345, '<'));
    EXPECT_EQ(zip.substr(18, 8), "\x45\x23\x01\0\x45\x23\x01\0"s);
    EXPECT_EQ(zip.substr(zip.size() - 6, 4), "\x78\x23\x01\0"s);  // 30 + 21 + 0x12345
}

TEST(ZipFile, KeepsTheDataAsItIs)
{
    std::string every_byte;
    for (int value = 0; value < 256; ++value)
        every_byte += static_cast<char>(value);
    EXPECT_EQ(stored_zip(kName, every_byte).substr(51, 256), every_byte);
}

namespace {

constexpr char kZip[] = "payname/brasslet.zip";

}  // namespace

TEST(Package, HoldsThePluginUnderItsPathInAFolderThatIsMade)
{
    const TestFolder folder;
    ASSERT_FALSE(folder.has("payname"));
    EXPECT_TRUE(write_plugin_zip(plugin_package_path(), "<?php // the plugin"));
    EXPECT_EQ(folder.read(kZip), stored_zip("brasslet/brasslet.php", "<?php // the plugin"));
    EXPECT_FALSE(folder.has("payname/brasslet.zip.tmp"));
}

TEST(Package, ReplacesTheOneBefore)
{
    const TestFolder folder;
    EXPECT_TRUE(write_plugin_zip(plugin_package_path(), "the first plugin, which is longer"));
    EXPECT_TRUE(write_plugin_zip(plugin_package_path(), "the second plugin"));
    EXPECT_EQ(folder.read(kZip), stored_zip("brasslet/brasslet.php", "the second plugin"));
}

TEST(Package, CannotBeWrittenWhereAFileIsInTheWayOfItsFolder)
{
    const TestFolder folder;
    folder.write("payname", "in the way");
    EXPECT_FALSE(write_plugin_zip(plugin_package_path(), "the plugin"));
    EXPECT_EQ(folder.read("payname"), "in the way");
}
