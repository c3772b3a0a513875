#include "ui/geometry.h"

#include <gtest/gtest.h>

TEST(Scaled, KeepsTheValueAt96)
{
    EXPECT_EQ(scaled(760, 96), 760);
}

TEST(Scaled, RoundsToTheNearestPixelAndHalvesAwayFromZero)
{
    EXPECT_EQ(scaled(17, 144), 26);    // 25.5
    EXPECT_EQ(scaled(-17, 144), -26);  // -25.5
    EXPECT_EQ(scaled(17, 120), 21);    // 21.25
    EXPECT_EQ(scaled(19, 120), 24);    // 23.75
    EXPECT_EQ(scaled(0, 144), 0);
}

TEST(StartDpi, IsWhatTheMonitorReported)
{
    EXPECT_EQ(start_dpi(144), 144U);
    EXPECT_EQ(start_dpi(96), 96U);
}

TEST(StartDpi, IsNeverBelow96)
{
    EXPECT_EQ(start_dpi(72), 96U);
    EXPECT_EQ(start_dpi(95), 96U);
    EXPECT_EQ(start_dpi(0), 96U);
}

TEST(StartDpi, Is96WhenTheMonitorDoesNotTell)
{
    EXPECT_EQ(start_dpi(std::nullopt), 96U);
}
