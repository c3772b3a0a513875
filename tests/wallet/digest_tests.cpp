#include "wallet/digest.h"

#include "text/ascii.h"

#include <gtest/gtest.h>

// FIPS 180-2, appendix B.1.
TEST(Digest, Sha256OfAbc)
{
    const auto digest = sha256(bytes_of("abc"));
    ASSERT_TRUE(digest);
    EXPECT_EQ(hex_encode(digest->bytes()), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

// The vectors of RIPEMD-160's authors.
TEST(Digest, Ripemd160OfNothingAndOfAbc)
{
    const auto nothing = ripemd160({});
    const auto abc = ripemd160(bytes_of("abc"));
    ASSERT_TRUE(nothing && abc);
    EXPECT_EQ(hex_encode(*nothing), "9c1185a5c5e9fc54612808977ee8f548b2258d31");
    EXPECT_EQ(hex_encode(*abc), "8eb208f7e05d987a9b044a8e98c6b087f15a0bfc");
}

// RFC 4231, test case 2.
TEST(Digest, HmacSha512WithAShortKey)
{
    const auto code = hmac_sha512(bytes_of("Jefe"), bytes_of("what do ya want for nothing?"));
    ASSERT_TRUE(code);
    EXPECT_EQ(hex_encode(code->bytes()), "164b7a7bfcf819e2e395fbe73b56e0a387bd64222e831fd610270cd7ea250554"
                                         "9758bf75c05a994a6d034f65f8f0e6fdcaeab1a34d4a6b4b636e070a38bce737");
}
