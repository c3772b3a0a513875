#include "plugin/zip_file.h"

#include <gtest/gtest.h>

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
