#include "wallet/seed.h"

#include "text/hex.h"
#include "wallet/vectors/bip39_english.h"

#include <gtest/gtest.h>

namespace {

std::string seed_hex(const std::string& phrase)
{
    const auto seed = seed_from_phrase(SecretText(phrase));
    return seed ? hex_encode(seed->bytes()) : std::string();
}

}  // namespace

TEST(Seed, StretchesThePublishedPhrases)
{
    for (const auto& vector : kPhraseVectors) {
        const auto seed = stretched_phrase(SecretText(vector.phrase), "mnemonicTREZOR");
        ASSERT_TRUE(seed);
        EXPECT_EQ(hex_encode(seed->bytes()), vector.seed) << vector.phrase;
    }
}

TEST(Seed, OfThePublishedPhraseWithoutPassPhrase)
{
    EXPECT_EQ(seed_hex("abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon about"),
              "5eb00bbddcf069084889a8ab9155568165f5c453ccb85e70811aaed6f6da5fc1"
              "9a5ac40b389cd370d086206dec8aa6c43daea6690f20ad3d8d48b2d2ce9e38e4");
}

TEST(Seed, IsComputedOverThePhraseAsItStands)
{
    // Computed with Python's hashlib.pbkdf2_hmac over the very text.
    EXPECT_EQ(
        seed_hex("Abandon  abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon\tABOUT"),
        "1612900cdc1787ed49213ef8e79a14d71c07c081874ecca90b53734469979c9b"
        "75171d3c0a0201db4e2fac325be7f4bfe88b2c3fb4cf70d3f8fdfc3df8801a46");
}
