#include "ui/button_pictures.h"

#include <gmock/gmock.h>

namespace {

constexpr Rect kGearButton{0, 0, 36, 36};
constexpr Rect kEyeButton{0, 0, 32, 32};

}  // namespace

TEST(Gear, ItsRingStandsAroundTheMiddleOfTheButton)
{
    EXPECT_EQ(gear_on(kGearButton, 96, false).ring, (Rect{13, 13, 11, 11}));
}

TEST(Gear, HasASpokeEveryEighthOfATurnCutOffTowardItsCentre)
{
    // Along the diagonal 5 becomes 3.5 and 10 becomes 7.07, on every side of the centre.
    EXPECT_THAT(gear_on(kGearButton, 96, false).spokes,
                testing::ElementsAre(Line{{23, 18}, {28, 18}}, Line{{21, 21}, {25, 25}}, Line{{18, 23}, {18, 28}},
                                     Line{{15, 21}, {11, 25}}, Line{{13, 18}, {8, 18}}, Line{{15, 15}, {11, 11}},
                                     Line{{18, 13}, {18, 8}}, Line{{21, 15}, {25, 11}}));
}

TEST(Gear, GrowsWithTheDpi)
{
    // 5 is 7.5 pixels at 144 DPI, rounded to 8, and 10 is 15: along the diagonal 5.7 and 10.6.
    const Gear gear = gear_on({0, 0, 54, 54}, 144, false);
    EXPECT_EQ(gear.ring, (Rect{19, 19, 17, 17}));
    EXPECT_EQ(gear.spokes[0], (Line{{35, 27}, {42, 27}}));
    EXPECT_EQ(gear.spokes[3], (Line{{22, 32}, {17, 37}}));
    // At 192 DPI 10 and 20: along the diagonal 7.07 and 14.1.
    EXPECT_EQ(gear_on({0, 0, 72, 72}, 192, false).spokes[5], (Line{{29, 29}, {22, 22}}));
}

TEST(Gear, OfAPressedButtonMovesOnePixelRightAndDown)
{
    const Gear gear = gear_on(kGearButton, 192, true);
    EXPECT_EQ(gear.ring, (Rect{9, 9, 21, 21}));
    EXPECT_EQ(gear.spokes[0], (Line{{29, 19}, {39, 19}}));
}

TEST(Gear, StandsInTheMiddleOfAnyRectangle)
{
    EXPECT_EQ(gear_on({3, 5, 37, 33}, 96, false).ring, (Rect{16, 16, 11, 11}));
}

TEST(Eye, StandsAroundTheMiddleOfTheButton)
{
    const Eye eye = eye_on(kEyeButton, 96, false, true);
    EXPECT_EQ(eye.outline, (Rect{7, 10, 19, 13}));
    EXPECT_EQ(eye.pupil, (Rect{13, 13, 7, 7}));
}

TEST(Eye, IsStruckThroughWhileThePasswordIsHidden)
{
    EXPECT_EQ(eye_on(kEyeButton, 96, false, true).slash, (Line{{7, 22}, {25, 10}}));
    EXPECT_EQ(eye_on(kEyeButton, 96, false, false).slash, std::nullopt);
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
    const Eye eye = eye_on(kEyeButton, 96, true, true);
    EXPECT_EQ(eye.outline, (Rect{8, 11, 19, 13}));
    EXPECT_EQ(eye.pupil, (Rect{14, 14, 7, 7}));
    EXPECT_EQ(eye.slash, (Line{{8, 23}, {26, 11}}));
}
