#include "update/build_number.h"

#include "build_values.h"

#include <gtest/gtest.h>

TEST(BuildOfVersion, CountsThousandthsAndPadsThem)
{
    EXPECT_EQ(build_of_version("0.001"), 1);
    EXPECT_EQ(build_of_version("0.002"), 2);
    EXPECT_EQ(build_of_version("0.01"), 10);
    EXPECT_EQ(build_of_version("0.1"), 100);
    EXPECT_EQ(build_of_version("2.5"), 2500);
    EXPECT_EQ(build_of_version("12.345"), 12345);
    EXPECT_EQ(build_of_version("0007.0"), 7000);
    EXPECT_EQ(build_of_version("0.0"), 0);
}

TEST(BuildOfVersion, IgnoresWhatFollowsTheThirdDigit)
{
    EXPECT_EQ(build_of_version("0.0015"), 1);
    EXPECT_EQ(build_of_version("1.2349999999999999999999"), 1234);
    EXPECT_EQ(build_of_version("1.234.5"), 1234);
}

TEST(BuildOfVersion, StopsAtTheFirstThatIsNoDigit)
{
    EXPECT_EQ(build_of_version("1.2.3"), 1200);
    EXPECT_EQ(build_of_version("1.2-beta"), 1200);
    EXPECT_EQ(build_of_version("1.x"), 1000);
    EXPECT_EQ(build_of_version("1.2x4"), 1200);
}

TEST(BuildOfVersion, NothingOnEitherSideOfTheDotIsNought)
{
    EXPECT_EQ(build_of_version(".5"), 500);
    EXPECT_EQ(build_of_version("5."), 5000);
    EXPECT_EQ(build_of_version("."), 0);
    EXPECT_EQ(build_of_version("..5"), 0);
}

TEST(BuildOfVersion, WithoutADotOrWithMoreThanDigitsBeforeItIsNone)
{
    for (const char* text : {"", "12", "0", "a.5", "1a.5", " 1.5", "-1.5", "+1.5", "1,5"})
        EXPECT_EQ(build_of_version(text), -1) << text;
}

TEST(BuildOfVersion, IsNoneWhenItDoesNotFitInto32Bits)
{
    EXPECT_EQ(build_of_version("2147483.647"), 2147483647);
    EXPECT_EQ(build_of_version("2147483.648"), -1);
    EXPECT_EQ(build_of_version("2147484.0"), -1);
    EXPECT_EQ(build_of_version(std::string(100'000, '9') + ".5"), -1);
    EXPECT_EQ(build_of_version(std::string(100'000, '0') + "1.5"), 1500);
}

TEST(BuildOnPage, IsTheNumberAfterAKey)
{
    EXPECT_EQ(build_on_page("Current build: 0.002"), 2);
    EXPECT_EQ(build_on_page("<p>Version: .5</p>"), 500);
    EXPECT_EQ(build_on_page("Version1.5"), 1500);
    EXPECT_EQ(build_on_page("Current build =:  = 0.003 of today"), 3);
    EXPECT_EQ(build_on_page("Version 0.004"), 4);
}

TEST(BuildOnPage, IsNoneWithoutAKeyOrANumberRightAfterIt)
{
    for (const char* page :
         {"", "0.002", "version 0.002", "VERSION 0.002", "current build 0.002", "Current  build 0.002", "Version",
          "Version ", "Version 12", "Version:\t0.002", "Version\n0.002", "Version <b>0.002</b>", "Version v0.002"})
        EXPECT_EQ(build_on_page(page), -1) << page;
}

TEST(BuildOnPage, TheLastValidNumberOfAKeyWins)
{
    EXPECT_EQ(build_on_page("Version 0.005 Version 0.003"), 3);
    EXPECT_EQ(build_on_page("Version 0.005 Version 12 Version x"), 5);
    EXPECT_EQ(build_on_page("Current build 0.005 Current build 0.004"), 4);
    EXPECT_EQ(build_on_page("Version 0.005 Version 99999999999999999999.1"), 5);
}

TEST(BuildOnPage, AnyAfterVersionBeatsEveryOneAfterCurrentBuild)
{
    EXPECT_EQ(build_on_page("Version = 1.5 and then Current build 0.009"), 1500);
    EXPECT_EQ(build_on_page("Version 0.001, Current build 9.0"), 1);
    EXPECT_EQ(build_on_page("Version 12, Current build 9.0"), 9000);
}

TEST(BuildOnPage, ReadsBytesAsTheyAre)
{
    EXPECT_EQ(build_on_page(std::string_view("\0\xFF\x80Version 0.002\0", 17)), 2);
    EXPECT_EQ(build_on_page("Version \xC2\xA0"
                            "0.002"),
              -1);
    EXPECT_EQ(build_on_page("VersionVersion 0.002"), 2);
    EXPECT_EQ(build_on_page("Version 0.00"), 0);
}

TEST(VersionOfBuild, HasThreeDigitsAfterTheDot)
{
    EXPECT_EQ(version_of_build(1), "0.001");
    EXPECT_EQ(version_of_build(2), "0.002");
    EXPECT_EQ(version_of_build(0), "0.000");
    EXPECT_EQ(version_of_build(1500), "1.500");
    EXPECT_EQ(version_of_build(2147483647), "2147483.647");
}

TEST(VersionText, IsTheOwnVersionOrWhereTheUpdateIs)
{
    EXPECT_EQ(version_text(false), "Version 0.001");
    EXPECT_EQ(version_text(true), std::string("Update available, ") + kMakersPage);
}
