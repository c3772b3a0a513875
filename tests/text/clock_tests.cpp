#include "text/clock.h"

#include <gtest/gtest.h>

// Figures of date(1).
TEST(IsoTime, IsInUtcWithMilliseconds)
{
    EXPECT_EQ(iso_time(0), "1970-01-01T00:00:00.000Z");
    EXPECT_EQ(iso_time(1'767'323'045'678), "2026-01-02T03:04:05.678Z");
    EXPECT_EQ(iso_time(1'709'251'199'999), "2024-02-29T23:59:59.999Z");
    EXPECT_EQ(iso_time(1'709'251'200'000), "2024-03-01T00:00:00.000Z");
    EXPECT_EQ(iso_time(951'782'400'007), "2000-02-29T00:00:00.007Z");
}
