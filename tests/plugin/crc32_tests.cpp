#include "plugin/crc32.h"

#include <gtest/gtest.h>

#include <string>

TEST(Crc32, OfNothingIsZero)
{
    EXPECT_EQ(crc32(""), 0U);
}

// The check value that catalogues of CRCs give for this one (CRC-32/ISO-HDLC).
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
