#include "app/name_preview.h"

#include <gtest/gtest.h>

namespace {

constexpr char kSite[] = "https://Example.org/blog/";
constexpr char kNothingYet[] = "name@your-site";

}  // namespace

TEST(NamePreview, ShowsTheNameInLowerCaseOnTheHostOfTheSite)
{
    EXPECT_EQ(name_preview("Ann", kSite), "ann@example.org");
    EXPECT_EQ(name_preview("a.b_c+d-9", "example.org"), "a.b_c+d-9@example.org");
}

TEST(NamePreview, TakesNamesOf1To64Characters)
{
    EXPECT_EQ(name_preview("a", kSite), "a@example.org");
    EXPECT_EQ(name_preview(std::string(64, 'a'), kSite), std::string(64, 'a') + "@example.org");
    EXPECT_EQ(name_preview("", kSite), kNothingYet);
    EXPECT_EQ(name_preview(std::string(65, 'a'), kSite), kNothingYet);
}

TEST(NamePreview, RefusesWhatNoNameMayHold)
{
    for (const char* name : {"an n", "ann@", "a/b", "\xC3\xA4nn", "a%sb"})
        EXPECT_EQ(name_preview(name, kSite), kNothingYet) << name;
}

TEST(NamePreview, NeedsASiteWithADotInItsHost)
{
    for (const char* site : {"", "https://intranet", "http://example.org", "https://"})
        EXPECT_EQ(name_preview("ann", site), kNothingYet) << site;
}

TEST(NameForField, IsTheFirstPublishedName)
{
    EXPECT_EQ(name_for_field("bob", "ann@example.org, zoe@example.org"), "ann");
    EXPECT_EQ(name_for_field("", "ann@example.org"), "ann");
}

TEST(NameForField, IsTheSavedNameWhenNoneIsPublished)
{
    EXPECT_EQ(name_for_field("bob", ""), "bob");
    EXPECT_EQ(name_for_field("bob", "no at sign"), "bob");
    EXPECT_EQ(name_for_field("", ""), "");
}
