// The scale at which the main window opens: that of the monitor on which Windows has put it, whatever was expected.
#include "app/windows/controls.h"
#include "kit/windows/drawn_texts.h"
#include "kit/windows/monitors.h"
#include "kit/windows/own_window.h"

#include <gtest/gtest.h>

namespace {

// The frame of the test desktop stays that of its one monitor, so the window's size is what can be expected.
Size window_size_for(Size client, unsigned dpi)
{
    RECT window{0, 0, client.width, client.height};
    AdjustWindowRectExForDpi(&window, 0x02CE0000, FALSE, 0, dpi);
    return {window.right - window.left, window.bottom - window.top};
}

Size size_of(const OwnWindow& window)
{
    const RECT rectangle = window.rectangle();
    return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
}

LONG font_height(const OwnWindow& window, int id)
{
    return -description(reinterpret_cast<HFONT>(SendMessageW(window.control(id), WM_GETFONT, 0, 0))).lfHeight;
}

}  // namespace

TEST(OpeningDpi, IsThatOfTheWindowsOwnMonitor)
{
    const TestFolder folder;
    const Monitors monitors(144, 144);
    const OwnWindow window(96);
    EXPECT_EQ(app_state().dpi, 144U);
    EXPECT_EQ(size_of(window), window_size_for({1140, 900}, 144));
    EXPECT_EQ(window.place(kConnectButton), main_layout(window.client().width, 144).connect);
    EXPECT_EQ(window.place(kCloseButton), main_layout(window.client().width, 144).close);
}

TEST(OpeningDpi, IsNoChangeOfDpiForTheFonts)
{
    const TestFolder folder;
    const Monitors monitors(144, 144);
    const OwnWindow window(96);
    EXPECT_EQ(font_height(window, kConnectButton), 24);
    EXPECT_EQ(font_height(window, kStatusLine), 21);
    EXPECT_EQ(font_height(window, kPaymentAddress), 21);
    EXPECT_EQ(font_height(window, kCloseButton), 24);
}

TEST(OpeningDpi, IsSmallerWhereALargerOneWasExpected)
{
    const TestFolder folder;
    const OwnWindow window(192);
    EXPECT_EQ(app_state().dpi, 96U);
    EXPECT_EQ(window.client(), (Size{760, 600}));
    EXPECT_EQ(font_height(window, kConnectButton), 16);
}

TEST(OpeningDpi, IsNeverBelow96)
{
    for (const UINT reported : {72U, 0U}) {
        const TestFolder folder;
        const Monitors monitors(reported, reported);
        const OwnWindow window(192);
        EXPECT_EQ(app_state().dpi, 96U) << reported;
        EXPECT_EQ(window.client(), (Size{760, 600})) << reported;
    }
}
