// A drawn button under the mouse, and one that is enabled or disabled.
#include "ui/windows/drawn_button.h"

#include "app/windows/controls.h"
#include "kit/windows/own_window.h"
#include "kit/windows/replaced_import.h"

#include <gtest/gtest.h>

using TrackFunction = decltype(&TrackMouseEvent);
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" TrackFunction __imp_TrackMouseEvent;

namespace {

TRACKMOUSEEVENT asked{};
int requests = 0;

BOOL WINAPI note_request(LPTRACKMOUSEEVENT request)
{
    asked = *request;
    ++requests;
    return TRUE;
}

class ButtonHover : public testing::Test {
protected:
    ButtonHover() { SetCursor(arrow()); }

    static HCURSOR arrow() { return LoadCursorW(nullptr, IDC_ARROW); }
    static HCURSOR hand() { return LoadCursorW(nullptr, IDC_HAND); }
    HWND button() const { return m_window.control(kPublishButton); }
    bool is_hot() const { return GetPropW(button(), L"payname.hot") != nullptr; }
    bool has_to_be_painted() const { return GetUpdateRect(button(), nullptr, FALSE) != 0; }
    void move_mouse() const { SendMessageW(button(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5)); }
    LRESULT ask_for_cursor(int where) const
    {
        return SendMessageW(button(), WM_SETCURSOR, reinterpret_cast<WPARAM>(button()),
                            MAKELPARAM(where, WM_MOUSEMOVE));
    }

    TestFolder m_folder;
    OwnWindow m_window;
};

class ButtonEnabling : public testing::Test {
protected:
    HWND button() const { return m_window.control(kPublishButton); }
    bool has_to_be_painted() const { return GetUpdateRect(button(), nullptr, FALSE) != 0; }

    TestFolder m_folder;
    OwnWindow m_window;
};

}  // namespace

TEST_F(ButtonHover, IsPaintedAnewWhenTheMouseComesAndWhenItLeaves)
{
    ASSERT_FALSE(has_to_be_painted());
    move_mouse();
    EXPECT_TRUE(is_hot());
    EXPECT_TRUE(has_to_be_painted());
    UpdateWindow(button());
    SendMessageW(button(), WM_MOUSELEAVE, 0, 0);
    EXPECT_FALSE(is_hot());
    EXPECT_TRUE(has_to_be_painted());
}

TEST_F(ButtonHover, IsNotPaintedForEveryMoveOfTheMouse)
{
    move_mouse();
    UpdateWindow(button());
    move_mouse();
    EXPECT_FALSE(has_to_be_painted());
}

TEST_F(ButtonHover, AsksToBeToldWhenTheMouseLeaves)
{
    const ReplacedImport<TrackFunction> noted(__imp_TrackMouseEvent, note_request);
    for (int moves = 1; moves <= 2; ++moves) {
        move_mouse();
        EXPECT_EQ(requests, moves);
    }
    EXPECT_EQ(asked.hwndTrack, button());
    EXPECT_EQ(asked.dwFlags, static_cast<DWORD>(TME_LEAVE));
}

TEST_F(ButtonHover, ShowsTheHandAtEveryMove)
{
    move_mouse();
    EXPECT_EQ(GetCursor(), hand());
    SetCursor(arrow());
    move_mouse();
    EXPECT_EQ(GetCursor(), hand());
}

TEST_F(ButtonHover, ShowsTheHandOverItsClientAreaAlone)
{
    EXPECT_EQ(ask_for_cursor(HTCLIENT), TRUE);
    EXPECT_EQ(GetCursor(), hand());
    ask_for_cursor(HTBORDER);
    EXPECT_NE(GetCursor(), hand());
}

TEST_F(ButtonEnabling, NobodyWaitsWhileItIsPainted)
{
    for (const BOOL is_enabled : {FALSE, TRUE}) {
        UpdateWindow(button());
        ASSERT_FALSE(has_to_be_painted());
        EnableWindow(button(), is_enabled);
        EXPECT_TRUE(has_to_be_painted());
        EXPECT_EQ(IsWindowEnabled(button()), is_enabled);
    }
}
