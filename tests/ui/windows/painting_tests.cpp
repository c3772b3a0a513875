// Painting, read back pixel by pixel from a bitmap and from a window of this process.
#include "kit/windows/canvas.h"
#include "ui/windows/theme.h"

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

TEST(DrawnButton, ShowsItsFaceRowByRowAndTheBackgroundInItsCorners)
{
    const Canvas canvas;
    const Button button;
    button.paint(canvas.dc(), 0);
    const Gradient face = button_face({}, kBackgroundBottom);
    for (const int row : {3, 20, 36})
        EXPECT_EQ(canvas.at(50, row), colorref(gradient_row(face, row, kHeight))) << row;
    EXPECT_EQ(canvas.at(50, 0), colorref(kBorder));
    EXPECT_EQ(canvas.at(0, 0), colorref(background_sample(60, 200)));
}

TEST(DrawnButton, PressedIsDarkAtTheTopWithAnActiveBorder)
{
    const Canvas canvas;
    const Button button;
    button.paint(canvas.dc(), ODS_SELECTED);
    EXPECT_EQ(canvas.at(50, 3), colorref(gradient_row(button_face({.pressed = true}, kBackgroundBottom), 3, kHeight)));
    EXPECT_EQ(canvas.at(50, 0), colorref(kBorderActive));
}

TEST(DrawnButton, UnderTheMouseIsLighterWithAnActiveBorderUntilTheMouseLeaves)
{
    const Canvas canvas;
    const Button button;
    SendMessageW(button.window, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(GetPropW(button.window, L"payname.hot"), reinterpret_cast<HANDLE>(1));
    button.paint(canvas.dc(), 0);
    EXPECT_EQ(canvas.at(50, 20), colorref(gradient_row(button_face({.hot = true}, {}), 20, kHeight)));
    EXPECT_EQ(canvas.at(50, 0), colorref(kBorderActive));
    SendMessageW(button.window, WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(GetPropW(button.window, L"payname.hot"), nullptr);
}

TEST(DrawnButton, DisabledIsDimmedTowardsTheBackground)
{
    const Canvas canvas;
    const Button button;
    button.paint(canvas.dc(), ODS_DISABLED);
    const Gradient face = button_face({.disabled = true}, background_sample(80, 200));
    EXPECT_EQ(canvas.at(50, 20), colorref(gradient_row(face, 20, kHeight)));
}

TEST(DrawnButton, ShowsTheHandOverItsClientArea)
{
    const Button button;
    EXPECT_EQ(SendMessageW(button.window, WM_SETCURSOR, reinterpret_cast<WPARAM>(button.window), HTCLIENT), TRUE);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_HAND));
}
