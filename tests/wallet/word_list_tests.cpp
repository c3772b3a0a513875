#include "wallet/word_list.h"

#include "text/hex.h"
#include "wallet/digest.h"

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
