#include "wallet/phrase.h"

#include "wallet/vectors/bip39_english.h"

#include <gtest/gtest.h>

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
    constexpr const char* kWords[] = {
#include "wallet/english_words.inc"
    };
    int valid = 0;
    for (const char* word : kWords)
        valid += is_valid(kEleven + " " + word) ? 1 : 0;
    EXPECT_EQ(valid, 128);
}
