#include "platform/windows/windows_version.h"

#include <gtest/gtest.h>

TEST(WindowsVersion, TheOldestIsWindows10Version1703)
{
    EXPECT_TRUE(is_new_enough({10, 0, 15063}));
    EXPECT_FALSE(is_new_enough({10, 0, 15062}));
    EXPECT_FALSE(is_new_enough({10, 0, 14393}));
    EXPECT_TRUE(is_new_enough({10, 0, 22000}));
    EXPECT_TRUE(is_new_enough({10, 1, 0}));
    EXPECT_TRUE(is_new_enough({11, 0, 0}));
    EXPECT_FALSE(is_new_enough({6, 3, 99999}));
    EXPECT_FALSE(is_new_enough({6, 1, 7601}));
    EXPECT_FALSE(is_new_enough({}));
}

TEST(WindowsVersion, OfTheRunningSystemIsTold)
{
    EXPECT_TRUE(is_new_enough(windows_version()));
}
