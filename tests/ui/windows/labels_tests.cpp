// The status line and the version label, which paint themselves: what they draw, and their pixels in the real window.
#include "ui/windows/labels.h"

#include "app/windows/controls.h"
#include "kit/windows/drawn_texts.h"
#include "kit/windows/own_window.h"
#include "kit/windows/picture.h"

#include <gtest/gtest.h>

namespace {

class PaintedStatic : public testing::TestWithParam<int> {
protected:
    HWND label() const { return m_window.control(GetParam()); }

    DrawnText drawn(const std::wstring& text) const
    {
        SetWindowTextW(label(), text.c_str());
        return find_text(drawn_texts([this] { repainted(label()); }), text);
    }

    // The window's gradient at the label's own row `row`.
    Colour behind(int row) const
    {
        return background_sample(m_window.place(GetParam()).y + row, m_window.client().height);
    }

    TestFolder m_folder;
    OwnWindow m_window;
};

void expect_near(Colour painted, Colour expected, int row)
{
    EXPECT_NEAR(painted.red, expected.red, 2) << row;
    EXPECT_NEAR(painted.green, expected.green, 2) << row;
    EXPECT_NEAR(painted.blue, expected.blue, 2) << row;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Labels, PaintedStatic, testing::Values(kStatusLine, kVersionLabel));

TEST_P(PaintedStatic, ContinuesTheWindowsGradientBehindItsText)
{
    SetWindowTextW(label(), L"Text");
    const Picture picture = repainted(label());
    EXPECT_EQ(picture.at(picture.width() - 1, 0), behind(0));
    for (int row = 0; row < picture.height(); ++row)
        expect_near(picture.at(picture.width() - 1, row), behind(row), row);
}

TEST_P(PaintedStatic, ShowsItsTextInTheLightColour)
{
    SetWindowTextW(label(), L"");
    EXPECT_FALSE(repainted(label()).shows(kLightText));
    SetWindowTextW(label(), L"\u2588\u2588 Text");
    EXPECT_TRUE(repainted(label()).shows(kLightText));
}

TEST_P(PaintedStatic, DrawsItsTextOverWhatIsThereInItsOwnFont)
{
    const DrawnText text = drawn(L"Some & text");
    EXPECT_EQ(text.colour, colorref(kLightText));
    EXPECT_EQ(text.background_mode, TRANSPARENT);
    EXPECT_STREQ(text.font.lfFaceName, L"Segoe UI");
    EXPECT_EQ(text.font.lfHeight, -14);
    const Rect place = m_window.place(GetParam());
    EXPECT_EQ(text.place, (Rect{0, 0, place.width, place.height}));
    const UINT form = GetParam() == kStatusLine ? DT_WORDBREAK : DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS;
    EXPECT_EQ(text.form, form | DT_NOPREFIX);
}

TEST_P(PaintedStatic, DrawsAtMost640Characters)
{
    SetWindowTextW(label(), std::wstring(700, L'x').c_str());
    const auto drawn = drawn_texts([this] { repainted(label()); });
    EXPECT_EQ(find_text(drawn, std::wstring(640, L'x')).text.size(), 640U);
}

TEST_P(PaintedStatic, LeavesNothingOfTheTextBefore)
{
    SetWindowTextW(label(), L"MMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMM");
    answer_messages();
    SetWindowTextW(label(), L"iiii");
    answer_messages();
    const Picture after = Picture(label());
    EXPECT_EQ(after, repainted(label()));
    SetWindowTextW(label(), L"");
    answer_messages();
    EXPECT_NE(Picture(label()), after);
    EXPECT_FALSE(Picture(label()).shows(kLightText));
}

TEST_P(PaintedStatic, FollowsTheGradientWhenTheWindowGrows)
{
    SetWindowTextW(label(), L"Text");
    answer_messages();
    SetWindowPos(m_window.window(), nullptr, 0, 0, 900, 800, SWP_NOMOVE | SWP_NOZORDER);
    answer_messages();
    const Picture after = Picture(label());
    EXPECT_EQ(after.at(after.width() - 1, 0), behind(0));
    EXPECT_EQ(after, repainted(label()));
}

TEST_P(PaintedStatic, ErasesNothing)
{
    HDC dc = GetDC(label());
    SetPixel(dc, 1, 1, RGB(1, 2, 3));
    EXPECT_EQ(SendMessageW(label(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 1);
    EXPECT_EQ(GetPixel(dc, 1, 1), RGB(1, 2, 3));
    ReleaseDC(label(), dc);
}
