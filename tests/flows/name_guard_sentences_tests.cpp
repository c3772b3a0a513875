#include "flows/name_guard_sentences.h"

#include <gtest/gtest.h>

namespace {

constexpr NameState kRight = NameState::pays_wallet;
constexpr NameState kOther = NameState::other_address;
constexpr NameState kUnclear = NameState::unclear;

constexpr char kOneOther[] = "a@x.org pays somebody else. Look who changed it on the site, then publish it again.";
constexpr char kTwoOthers[] = "a@x.org, c@y.org pay somebody else. Look who changed them on the site, then publish "
                              "them again.";
constexpr char kUnanswered[] =
    "No answer about b@x.org. Look whether the site opens and the plugin is active there, or "
    "publish again.";

}  // namespace

TEST(GuardWarning, NamesThoseThatPaySomebodyElse)
{
    EXPECT_EQ(guard_warning({{"a@x.org", kOther}, {"b@x.org", kRight}}), kOneOther);
    EXPECT_EQ(guard_warning({{"a@x.org", kOther}, {"b@x.org", kUnclear}, {"c@y.org", kOther}}), kTwoOthers);
    for (const NameState state : {NameState::other_key, NameState::other_address, NameState::other_output})
        EXPECT_EQ(guard_warning({{"a@x.org", state}}), kOneOther);
}

TEST(GuardWarning, SaysNothingOfNamesThatAreRightOrOfWhichNothingIsKnown)
{
    EXPECT_EQ(guard_warning({}), "");
    EXPECT_EQ(guard_warning({{"a@x.org", kRight}, {"b@x.org", kUnclear}}), "");
}

TEST(GuardWarning, CountsWhatItDoesNotList)
{
    std::vector<LookedAtName> names;
    for (const char* name : {"a@x.org", "b@x.org", "c@x.org", "d@x.org"})
        names.push_back({name, kOther});
    EXPECT_TRUE(guard_warning(names).starts_with("a@x.org, b@x.org, c@x.org, d@x.org pay somebody else."));
    names.push_back({"e@x.org", kOther});
    EXPECT_TRUE(guard_warning(names).starts_with("a@x.org, b@x.org, c@x.org, d@x.org and 1 more pay somebody else."));
}

TEST(GuardAnswer, SaysThatAllNamesPayThisWallet)
{
    EXPECT_EQ(guard_answer({{"a@x.org", kRight}}), "The name pays this wallet.");
    EXPECT_EQ(guard_answer({{"a@x.org", kRight}, {"b@x.org", kRight}}), "All 2 names pay this wallet.");
}

TEST(GuardAnswer, NamesThoseThatPaySomebodyElseAndThoseWithoutAnAnswer)
{
    EXPECT_EQ(guard_answer({{"a@x.org", kOther}, {"b@x.org", kRight}}), kOneOther);
    EXPECT_EQ(guard_answer({{"a@x.org", kRight}, {"b@x.org", kUnclear}}), kUnanswered);
    EXPECT_EQ(guard_answer({{"a@x.org", kOther}, {"b@x.org", kUnclear}}), std::string(kOneOther) + " " + kUnanswered);
}

TEST(GuardAnswer, OfNoNameIsASentenceToo)
{
    EXPECT_EQ(guard_answer({}), "No name is kept for this wallet.");
}
