#include "ui/eye.h"

#include <gtest/gtest.h>

namespace {

constexpr Rect kButton{0, 0, 32, 32};

}  // namespace

TEST(Eye, StandsAroundTheMiddleOfTheButton)
{
    const Eye eye = eye_on(kButton, 96, false, true);
    EXPECT_EQ(eye.outline, (Rect{7, 10, 19, 13}));
    EXPECT_EQ(eye.pupil, (Rect{13, 13, 7, 7}));
}

TEST(Eye, IsStruckThroughWhileThePasswordIsHidden)
{
    EXPECT_EQ(eye_on(kButton, 96, false, true).slash, (Line{{7, 22}, {25, 10}}));
    EXPECT_EQ(eye_on(kButton, 96, false, false).slash, std::nullopt);
}

TEST(Eye, GrowsWithTheDpi)
{
    // At 144 DPI 9 is 13.5 pixels, rounded to 14, 6 is 9, and 3 is 4.5, rounded to 5.
    const Eye eye = eye_on({0, 0, 48, 48}, 144, false, true);
    EXPECT_EQ(eye.outline, (Rect{10, 15, 29, 19}));
    EXPECT_EQ(eye.pupil, (Rect{19, 19, 11, 11}));
    EXPECT_EQ(eye.slash, (Line{{10, 33}, {38, 15}}));
}

TEST(Eye, OfAPressedButtonMovesOnePixelRightAndDown)
{
    const Eye eye = eye_on(kButton, 96, true, true);
    EXPECT_EQ(eye.outline, (Rect{8, 11, 19, 13}));
    EXPECT_EQ(eye.pupil, (Rect{14, 14, 7, 7}));
    EXPECT_EQ(eye.slash, (Line{{8, 23}, {26, 11}}));
}
