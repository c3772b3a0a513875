// Painting, read back pixel by pixel from a bitmap and from a window of this process.
#include "ui/background.h"
#include "ui/drawn_button.h"

#include <gtest/gtest.h>

namespace {

constexpr int kWidth = 100;
constexpr int kHeight = 40;

class Canvas {
public:
    Canvas()
    {
        HDC screen = GetDC(nullptr);
        m_dc = CreateCompatibleDC(screen);
        m_bitmap = CreateCompatibleBitmap(screen, kWidth, kHeight);
        ReleaseDC(nullptr, screen);
        m_before = SelectObject(m_dc, m_bitmap);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas()
    {
        SelectObject(m_dc, m_before);
        DeleteObject(m_bitmap);
        DeleteDC(m_dc);
    }

    HDC dc() const { return m_dc; }
    COLORREF at(int x, int y) const { return GetPixel(m_dc, x, y); }

private:
    HDC m_dc = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_before = nullptr;
};

// A parent of 200 rows and a button without a label in it.
struct Button {
    Button()
    {
        parent = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 300, 200, nullptr, nullptr, nullptr, nullptr);
        window = create_drawn_button(parent, 1006, L"");
        MoveWindow(window, 20, 60, kWidth, kHeight, FALSE);
    }
    Button(const Button&) = delete;
    Button& operator=(const Button&) = delete;
    ~Button() { DestroyWindow(parent); }

    void paint(HDC dc, UINT state, int height = kHeight) const
    {
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_BUTTON;
        item.itemState = state;
        item.hwndItem = window;
        item.hDC = dc;
        item.rcItem = {0, 0, kWidth, height};
        paint_drawn_button(item, 96, nullptr);
    }

    HWND parent = nullptr;
    HWND window = nullptr;
};

}  // namespace

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
