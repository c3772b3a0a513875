#include "platform/rewrite_plan.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// A file in memory that remembers how it looked after every step, so that a kill at any moment can be looked at.
struct FileOfSteps {
    std::string bytes;
    std::size_t largest = 1000;  // a write stops there: the disk is full
    std::vector<std::string> states = {};

    std::optional<std::size_t> size() const { return bytes.size(); }
    bool write_at(std::size_t offset, std::string_view text)
    {
        const bool fits = offset + text.size() <= largest;
        if (!fits) text = text.substr(0, largest > offset ? largest - offset : 0);
        if (bytes.size() < offset + text.size()) bytes.resize(offset + text.size());
        bytes.replace(offset, text.size(), text);
        states.push_back(bytes);
        return fits;
    }
    bool cut_at(std::size_t new_size)
    {
        bytes.resize(new_size);
        states.push_back(bytes);
        return true;
    }
};

std::string without_trailing_blanks(std::string text)
{
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

struct OldAndNew {
    std::string old_text;
    std::string new_text;
};

}  // namespace

TEST(RewritePlan, EveryStepLeavesTheOldOrTheNewTextAndTheLastTheNewOneAlone)
{
    const std::string one = "{\"a\":1}";
    const std::string other = "{\"b\":2}";
    const std::string longer = "{\"a\":1,\"b\":2}";
    for (const OldAndNew& texts : {OldAndNew{one, longer}, {longer, one}, {one, other}, {"", one}}) {
        FileOfSteps file{texts.old_text};
        ASSERT_TRUE(carry_out_rewrite(file, texts.new_text));
        for (const std::string& state : file.states) {
            const std::string text = without_trailing_blanks(state);
            EXPECT_TRUE(text == texts.old_text || text == texts.new_text) << text;
        }
        EXPECT_EQ(file.bytes, texts.new_text);
    }
}

TEST(RewritePlan, TheSameHoldsForFilesOfAKilobyteToAMegabyte)
{
    for (const std::size_t old_size : {1'024U, 4'096U, 4'097U, 65'536U, 1'048'576U}) {
        for (const std::size_t new_size : {1'024U, 65'537U, 1'048'576U}) {
            const OldAndNew texts{"[" + std::string(old_size, '1') + "]", "[" + std::string(new_size, '2') + "]"};
            FileOfSteps file{texts.old_text, 2'000'000};
            ASSERT_TRUE(carry_out_rewrite(file, texts.new_text));
            for (const std::string& state : file.states) {
                const std::string text = without_trailing_blanks(state);
                EXPECT_TRUE(text == texts.old_text || text == texts.new_text);
            }
            EXPECT_TRUE(file.bytes == texts.new_text);
        }
    }
}

TEST(RewritePlan, AFullDiskLeavesTheOldText)
{
    FileOfSteps file{"{\"a\":1}"};
    file.largest = 9;
    EXPECT_FALSE(carry_out_rewrite(file, "{\"a\":1,\"b\":2}"));
    EXPECT_EQ(file.bytes, "{\"a\":1}");
}

TEST(RewritePlan, AFileWithoutASizeIsNotTouched)
{
    struct Unmeasurable : FileOfSteps {
        std::optional<std::size_t> size() const { return std::nullopt; }
    } file;
    EXPECT_FALSE(carry_out_rewrite(file, "{}"));
    EXPECT_TRUE(file.states.empty());
}
