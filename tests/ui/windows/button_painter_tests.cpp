// Buttons, painted on a bitmap and read back pixel by pixel. A stroke of a picture is two pixels wide: along a line
// both the pixel on it and one beside it have the stroke's colour, so that a pixel on the line is always hit.
#include "kit/windows/canvas.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace {

constexpr int kMiddleX = kWidth / 2;
constexpr int kMiddleY = kHeight / 2;

class PictureOnButton : public testing::Test {
protected:
    void paint(Picture picture, UINT state = 0) const { button.paint(canvas.dc(), state, picture); }
    bool is_inked(int right, int down, Colour ink = kButtonText) const
    {
        return canvas.at(kMiddleX + right, kMiddleY + down) == colorref(ink);
    }

    bool is_face(int right, int down) const
    {
        const int row = kMiddleY + down;
        return canvas.at(kMiddleX + right, row) == colorref(gradient_row(button_face({}, {}), row, kHeight));
    }
    std::set<std::pair<int, int>> inked() const
    {
        std::set<std::pair<int, int>> points;
        for (int right = -16; right <= 16; ++right)
            for (int down = -16; down <= 16; ++down)
                if (is_inked(right, down)) points.emplace(right, down);
        return points;
    }

    const Canvas canvas;
    const Button button;
};

}  // namespace

TEST_F(PictureOnButton, AGearHasARingEightSpokesAndNothingInItsMiddle)
{
    paint(Picture::gear);
    for (const auto& [right, down] : {std::pair{8, 0}, {5, 5}, {0, 8}, {-5, 5}, {-8, 0}, {-5, -5}, {0, -8}, {5, -5}})
        EXPECT_TRUE(is_inked(right, down)) << right << " " << down;
    for (const auto& [right, down] : {std::pair{5, 0}, {0, 5}, {-5, 0}, {0, -5}})
        EXPECT_TRUE(is_inked(right, down)) << right << " " << down;
    EXPECT_TRUE(is_face(0, 0));
    EXPECT_TRUE(is_face(13, 0));
    EXPECT_TRUE(is_face(8, 4));
}

TEST_F(PictureOnButton, StrokesAreTwoPixelsWide)
{
    paint(Picture::gear);
    EXPECT_NE(is_inked(8, -1), is_inked(8, 1));
    EXPECT_NE(is_inked(-1, 8), is_inked(1, 8));
    paint(Picture::open_eye);
    EXPECT_NE(is_inked(-8, 0), is_inked(-10, 0));
    EXPECT_NE(is_inked(0, -5), is_inked(0, -7));
}

TEST_F(PictureOnButton, AnEyeHasALidAndAFilledPupil)
{
    paint(Picture::open_eye);
    for (const auto& [right, down] : {std::pair{9, 0}, {-9, 0}, {0, 6}, {0, -6}, {0, 0}, {2, 1}, {-2, -1}})
        EXPECT_TRUE(is_inked(right, down)) << right << " " << down;
    for (const auto& [right, down] : {std::pair{5, 0}, {-5, 1}, {8, -6}, {-8, 6}})
        EXPECT_TRUE(is_face(right, down)) << right << " " << down;
}

TEST_F(PictureOnButton, AStruckEyeHasASlashFromBelowOnTheLeft)
{
    paint(Picture::struck_eye);
    for (const auto& [right, down] : {std::pair{-8, 5}, {-5, 3}, {5, -3}, {8, -5}})
        EXPECT_TRUE(is_inked(right, down) || is_inked(right - 1, down) || is_inked(right, down - 1)) << right;
    EXPECT_FALSE(is_inked(8, 6));
}

TEST_F(PictureOnButton, OnADisabledButtonIsPaintedInThePaleColour)
{
    paint(Picture::gear, ODS_DISABLED);
    EXPECT_TRUE(is_inked(8, 0, kButtonTextDisabled));
    paint(Picture::struck_eye, ODS_DISABLED);
    EXPECT_TRUE(is_inked(0, 0, kButtonTextDisabled));
}

TEST_F(PictureOnButton, OnAPressedButtonMovesOnePixelRightAndDown)
{
    for (const Picture picture : {Picture::gear, Picture::struck_eye}) {
        paint(picture);
        const std::set<std::pair<int, int>> at_rest = inked();
        paint(picture, ODS_SELECTED);
        std::set<std::pair<int, int>> moved_back;
        for (const auto& [right, down] : inked())
            moved_back.emplace(right - 1, down - 1);
        EXPECT_GT(at_rest.size(), 50U);
        EXPECT_EQ(moved_back, at_rest);
    }
}

TEST_F(PictureOnButton, ReplacesTheLabel)
{
    SetWindowTextW(button.window, L"XXXXXXXX");
    paint(Picture::none);
    int label = 0;
    for (int right = -40; right < -12; ++right)
        label += is_inked(right, 0) ? 1 : 0;
    EXPECT_GT(label, 0);
    paint(Picture::gear);
    for (int right = -40; right < -12; ++right)
        EXPECT_FALSE(is_inked(right, 0)) << right;
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

TEST(DrawnButton, ShowsTheHandOverItsClientArea)
{
    const Button button;
    EXPECT_EQ(SendMessageW(button.window, WM_SETCURSOR, reinterpret_cast<WPARAM>(button.window), HTCLIENT), TRUE);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_HAND));
}
