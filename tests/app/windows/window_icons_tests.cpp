// The icons of the title bar and the taskbar, in the sizes of the window's DPI.
#include "kit/windows/own_window.h"

#include <gtest/gtest.h>

namespace {

HICON icon_of(HWND window, WPARAM which)
{
    return reinterpret_cast<HICON>(SendMessageW(window, WM_GETICON, which, 0));
}

// Pixels of a side; 0 when the icon has been destroyed.
int size_of(HICON icon)
{
    ICONINFO info{};
    if (icon == nullptr || !GetIconInfo(icon, &info)) return 0;
    BITMAP picture{};
    GetObjectW(info.hbmColor, sizeof picture, &picture);
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    EXPECT_EQ(picture.bmWidth, picture.bmHeight);
    return picture.bmWidth;
}

void expect_icons_of(const OwnWindow& window, unsigned dpi)
{
    const int large_size = size_of(icon_of(window.window(), ICON_BIG));
    EXPECT_EQ(large_size, static_cast<int>(32 * dpi / 96)) << dpi;
    EXPECT_EQ(large_size, GetSystemMetricsForDpi(SM_CXICON, dpi)) << dpi;
    const int small_size = size_of(icon_of(window.window(), ICON_SMALL));
    EXPECT_EQ(small_size, GetSystemMetricsForDpi(SM_CXSMICON, dpi)) << dpi;
    EXPECT_LT(small_size, large_size) << dpi;
}

}  // namespace

TEST(WindowIcons, HaveTheSizesOfTheMonitorAtTheStart)
{
    for (const unsigned dpi : {96U, 144U, 192U}) {
        const TestFolder folder;
        const Monitors monitors(dpi, dpi);
        const OwnWindow window;
        expect_icons_of(window, dpi);
    }
}

TEST(WindowIcons, FollowAChangeOfDpi)
{
    const TestFolder folder;
    const OwnWindow window;
    for (const unsigned dpi : {144U, 192U, 288U, 96U}) {
        window.change_dpi(dpi, window.rectangle());
        expect_icons_of(window, dpi);
    }
}

TEST(WindowIcons, OfTheDpiBeforeAreFreed)
{
    const TestFolder folder;
    const OwnWindow window;
    const HICON large_before = icon_of(window.window(), ICON_BIG);
    const HICON small_before = icon_of(window.window(), ICON_SMALL);
    ASSERT_NE(size_of(large_before), 0);
    ASSERT_NE(size_of(small_before), 0);
    window.change_dpi(192, window.rectangle());
    EXPECT_EQ(size_of(large_before), 0);
    EXPECT_EQ(size_of(small_before), 0);
}

TEST(WindowIcons, TheClassKeepsItsOwn)
{
    const TestFolder folder;
    const OwnWindow window;
    window.change_dpi(192, window.rectangle());
    EXPECT_EQ(size_of(reinterpret_cast<HICON>(GetClassLongPtrW(window.window(), GCLP_HICON))), 32);
    EXPECT_EQ(size_of(reinterpret_cast<HICON>(GetClassLongPtrW(window.window(), GCLP_HICONSM))), 16);
}
