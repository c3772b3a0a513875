#include "wallet/phrase.h"

#include "text/ascii.h"
#include "wallet/digest.h"
#include "wallet/vectors/bip39_english.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr const char* kWords[] = {
#include "wallet/english_words.inc"
};

}  // namespace

// The digest of the BIP's own english.txt, one word on a line.
TEST(WordList, IsThePublishedOne)
{
    std::string file;
    for (const char* word : kWords)
        file += std::string(word) + "\n";
    const auto digest = sha256(bytes_of(file));
    ASSERT_TRUE(digest);
    EXPECT_EQ(hex_encode(digest->bytes()), "2f5eed53a4727b4bf8880d8f3f199efc90e58503646d9ff8eff3a2ed3b24dbda");
}

TEST(WordList, KnowsThePositionOfEveryWord)
{
    for (std::uint16_t i = 0; i < 2048; ++i)
        EXPECT_EQ(word_position(kWords[i]), i);
}

TEST(WordList, TakesCapitalsForSmallLetters)
{
    for (std::uint16_t i = 0; i < 2048; ++i) {
        std::string capitals = kWords[i];
        for (char& c : capitals)
            c = static_cast<char>(c - 'a' + 'A');
        EXPECT_EQ(word_position(capitals), i);
    }
    EXPECT_EQ(word_position("zOo"), 2047);
}

TEST(WordList, KnowsNoOtherWord)
{
    for (const char* word : {"", "abando", "abandons", "zo", "zooo", "aban don", "act\xc3\xb3r", "ab@ndon", "1"})
        EXPECT_FALSE(word_position(word)) << word;
    EXPECT_FALSE(word_position(std::string_view("zoo\0", 4)));
}

namespace {

bool is_valid(const std::string& phrase)
{
    return is_valid_phrase(SecretText(phrase));
}

const std::string kEleven = "abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon";

}  // namespace

TEST(Phrase, ThePublishedOnesAreValid)
{
    for (const auto& vector : kPhraseVectors)
        EXPECT_TRUE(is_valid(vector.phrase)) << vector.phrase;
}

TEST(Phrase, BlanksAndTabsSeparateAndRunsOfThemCountAsOne)
{
    EXPECT_TRUE(is_valid(" \t" + kEleven + "  \t  about\t "));
    EXPECT_TRUE(
        is_valid("abandon\tabandon  abandon abandon abandon abandon abandon abandon abandon abandon abandon about"));
}

TEST(Phrase, OtherWhiteSpaceDoesNotSeparate)
{
    EXPECT_FALSE(is_valid(kEleven + "\nabout"));
    EXPECT_FALSE(is_valid(kEleven + " about\n"));
    EXPECT_FALSE(is_valid(kEleven + "\xc2\xa0"
                                    "about"));
}

TEST(Phrase, CapitalsAreTakenForSmallLetters)
{
    EXPECT_TRUE(is_valid("ABANDON Abandon abandoN " + kEleven.substr(24) + " About"));
}

TEST(Phrase, EveryCountButTwelveFails)
{
    EXPECT_FALSE(is_valid(""));
    EXPECT_FALSE(is_valid("  "));
    EXPECT_FALSE(is_valid(kEleven));
    EXPECT_FALSE(is_valid(kEleven + " about abandon"));
    EXPECT_FALSE(is_valid(kEleven + " about about"));
    // A published phrase of 15 words and more is valid by its own checksum, yet no wallet here has one.
    EXPECT_FALSE(is_valid(kEleven + " abandon abandon abandon abandon abandon abandon agent"));
}

TEST(Phrase, AWordOutsideTheListFails)
{
    EXPECT_FALSE(is_valid(kEleven + " abouts"));
    EXPECT_FALSE(is_valid("zzz " + kEleven.substr(8) + " about"));
}

TEST(Phrase, AWrongChecksumFails)
{
    EXPECT_FALSE(is_valid(kEleven + " abandon"));
    EXPECT_FALSE(is_valid("zoo zoo zoo zoo zoo zoo zoo zoo zoo zoo zoo zoo"));
}

TEST(Phrase, WithElevenWordsGivenOneLastWordInSixteenHolds)
{
    // The last word carries 7 bits of entropy and 4 of checksum: exactly 128 of the 2048 words fit.
    int valid = 0;
    for (const char* word : kWords)
        valid += is_valid(kEleven + " " + word) ? 1 : 0;
    EXPECT_EQ(valid, 128);
}

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
    // Computed with Python's hashlib.pbkdf2_hmac over the same bytes.
    EXPECT_EQ(
        seed_hex("Abandon  abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon\tABOUT"),
        "1612900cdc1787ed49213ef8e79a14d71c07c081874ecca90b53734469979c9b"
        "75171d3c0a0201db4e2fac325be7f4bfe88b2c3fb4cf70d3f8fdfc3df8801a46");
}
