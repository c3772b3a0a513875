#include "ui/windows/theme.h"

#include "kit/windows/canvas.h"

#include <gtest/gtest.h>

TEST(PaintGradient, RunsFromTheStartColourDownToTheEndColour)
{
    const Canvas canvas;
    paint_gradient(canvas.dc(), {0, 0, kWidth, kHeight}, {kBackgroundTop, kBackgroundBottom});
    EXPECT_EQ(canvas.at(0, 0), colorref(kBackgroundTop));
    EXPECT_EQ(canvas.at(kWidth - 1, 0), colorref(kBackgroundTop));
    EXPECT_LE(GetRValue(canvas.at(50, kHeight - 1)), kBackgroundBottom.red + 6);
}

TEST(BackgroundBehind, IsTheParentsGradientAtTheControl)
{
    const Button button;
    const BackgroundBehind behind = background_behind(button.window);
    EXPECT_EQ(behind.whole.start, background_sample(60, 200));
    EXPECT_EQ(behind.whole.end, background_sample(100, 200));
    EXPECT_EQ(behind.middle, background_sample(80, 200));
}

TEST(BackgroundBehind, AFlatParentIsTheBottomColour)
{
    const Button button;
    MoveWindow(button.parent, 0, 0, 300, 1, FALSE);
    EXPECT_EQ(background_behind(button.window).middle, kBackgroundBottom);
}
