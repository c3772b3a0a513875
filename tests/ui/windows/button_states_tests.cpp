// The buttons of the real windows as they stand on the screen: at rest, under the mouse, pressed, disabled; and the
// pictures on two of them.
#include "app/windows/controls.h"
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "settings/windows/settings_window_controls.h"
#include "ui/button_pictures.h"
#include "ui/windows/gdi.h"

#include <gtest/gtest.h>

namespace {

class ButtonOnScreen : public testing::Test {
protected:
    // Whether the rows of the Publish button have the colours of `state`, left of its label.
    bool shows_face(ButtonState state) const
    {
        const Rect place = program.place(kPublishButton);
        const Colour behind = background_sample((place.y + place.bottom()) / 2, program.client().height);
        const Gradient face = button_face(state, behind);
        return becomes_true([&] {
            for (const int row : {2, place.height / 2, place.height - 4})
                if (at(place.x + 12, place.y + row) != colorref(gradient_row(face, row, place.height))) return false;
            return true;
        });
    }
    bool has_outline(Colour colour) const
    {
        const Rect place = program.place(kPublishButton);
        return becomes_true([&] { return at(place.x + 30, place.y) == colorref(colour); });
    }
    void move_mouse(int x, int y) const
    {
        POINT point{x, y};
        ClientToScreen(program.window(), &point);
        SetCursorPos(point.x, point.y);
    }
    void move_mouse_over_publish() const
    {
        const Rect place = program.place(kPublishButton);
        move_mouse(place.x + 40, place.middle());
    }
    COLORREF at(int x, int y) const { return pixel_of(program.window(), x, y); }

    const TestFolder folder;
    const RunningProgram program;
};

bool shows_ink(HWND button, Point point)
{
    return becomes_true([&] { return pixel_of(button, point.x, point.y) == colorref(kButtonText); });
}

}  // namespace

TEST_F(ButtonOnScreen, AtRestHasItsFaceAndOutlineAndTheWindowInItsCorners)
{
    move_mouse(5, 5);
    EXPECT_TRUE(shows_face({}));
    EXPECT_TRUE(has_outline(kBorder));
    const Rect place = program.place(kPublishButton);
    const COLORREF corner = at(place.x, place.y);
    const Colour behind = background_sample(place.y, program.client().height);
    EXPECT_NEAR(GetRValue(corner), behind.red, 2);
    EXPECT_NEAR(GetGValue(corner), behind.green, 2);
    EXPECT_NEAR(GetBValue(corner), behind.blue, 2);
}

TEST_F(ButtonOnScreen, IsLighterUnderTheMouseUntilItLeaves)
{
    move_mouse_over_publish();
    EXPECT_TRUE(shows_face({.hot = true}));
    EXPECT_TRUE(has_outline(kBorderActive));
    move_mouse(5, 5);
    EXPECT_TRUE(shows_face({}));
    EXPECT_TRUE(has_outline(kBorder));
}

TEST_F(ButtonOnScreen, IsDarkAtTheTopWhilePressed)
{
    move_mouse(5, 5);
    send_to(program.control(kPublishButton), BM_SETSTATE, TRUE);
    EXPECT_TRUE(shows_face({.pressed = true}));
    EXPECT_TRUE(has_outline(kBorderActive));
    send_to(program.control(kPublishButton), BM_SETSTATE, FALSE);
    EXPECT_TRUE(shows_face({}));
}

TEST_F(ButtonOnScreen, IsDimmedWhileDisabledAlsoUnderTheMouse)
{
    move_mouse(5, 5);
    EnableWindow(program.control(kPublishButton), FALSE);
    EXPECT_TRUE(shows_face({.disabled = true}));
    SetPropW(program.control(kPublishButton), L"payname.hot", reinterpret_cast<HANDLE>(1));
    InvalidateRect(program.control(kPublishButton), nullptr, FALSE);
    EXPECT_TRUE(shows_face({.hot = true, .disabled = true}));
}

TEST_F(ButtonOnScreen, TheGearIsOnTheSettingsButton)
{
    const Gear gear = gear_on({0, 0, 36, 36}, 96, false);
    for (const Line& spoke : gear.spokes)
        EXPECT_TRUE(shows_ink(program.control(kSettingsButton), spoke.from)) << spoke.from.x << " " << spoke.from.y;
    EXPECT_NE(pixel_of(program.control(kSettingsButton), 18, 18), colorref(kButtonText));
}

TEST_F(ButtonOnScreen, TheEyeIsStruckThroughUntilThePasswordIsShown)
{
    const OpenSettingsWindow settings(program);
    const HWND button = settings.control(kShowPasswordButton);
    const Line slash = *eye_on({0, 0, 32, 32}, 96, false, true).slash;
    const Point near_its_start{slash.from.x + 1, slash.from.y - 1};
    EXPECT_TRUE(shows_ink(button, {16, 16}));
    EXPECT_TRUE(shows_ink(button, {7, 16}));
    EXPECT_TRUE(shows_ink(button, near_its_start));
    settings.press(kShowPasswordButton);
    EXPECT_TRUE(
        becomes_true([&] { return pixel_of(button, near_its_start.x, near_its_start.y) != colorref(kButtonText); }));
    EXPECT_TRUE(shows_ink(button, {16, 16}));
}
