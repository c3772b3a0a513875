#include "text/base64.h"

#include <gtest/gtest.h>

// The vectors of RFC 4648, section 10.
TEST(Base64, EncodesThePublishedVectors)
{
    EXPECT_EQ(base64_encode(""), "");
    EXPECT_EQ(base64_encode("f"), "Zg==");
    EXPECT_EQ(base64_encode("fo"), "Zm8=");
    EXPECT_EQ(base64_encode("foo"), "Zm9v");
    EXPECT_EQ(base64_encode("foob"), "Zm9vYg==");
    EXPECT_EQ(base64_encode("fooba"), "Zm9vYmE=");
    EXPECT_EQ(base64_encode("foobar"), "Zm9vYmFy");
    EXPECT_EQ(base64_encode("\xff\xef\xbe"), "/+++");
}

TEST(Base64, DecodesWhatItEncodes)
{
    std::string every_byte;
    for (int i = 0; i < 256; ++i)
        every_byte += static_cast<char>(i);
    EXPECT_EQ(base64_decode(base64_encode(every_byte)), every_byte);
}

TEST(Base64, SkipsWhatIsNotInTheAlphabet)
{
    EXPECT_EQ(base64_decode(" Zm9v\r\nYm*Fy=="), "foobar");
    EXPECT_EQ(base64_decode("=*-_"), "");
}

TEST(Base64, DropsBitsThatDoNotCompleteAByte)
{
    EXPECT_EQ(base64_decode("Zm9vZ"), "foo");
    EXPECT_EQ(base64_decode("Z"), "");
}
