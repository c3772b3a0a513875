// The main window's handlers of the system's messages, called directly.
#include "app/layout.h"
#include "app/windows/controls.h"
#include "kit/windows/own_window.h"
#include "kit/windows/picture.h"
#include "settings/windows/settings_window_controls.h"

#include <gtest/gtest.h>

#include <commctrl.h>

namespace {

constexpr Rect kMoved{1, 2, 30, 40};

void move_close_button(const OwnWindow& window)
{
    MoveWindow(window.control(kCloseButton), kMoved.x, kMoved.y, kMoved.width, kMoved.height, FALSE);
}

Rect area_to_paint(HWND window)
{
    RECT area{};
    GetUpdateRect(window, &area, FALSE);
    return from_windows(area);
}

HWND make_other_window()
{
    HWND other = CreateWindowExW(0, L"STATIC", L"another", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100, nullptr,
                                 nullptr, nullptr, nullptr);
    SetForegroundWindow(other);
    answer_messages();
    return other;
}

}  // namespace

TEST(WindowMessages, TheWindowHasNeitherOwnerNorExtendedStyleOfItsOwn)
{
    const TestFolder folder;
    const OwnWindow window;
    EXPECT_EQ(GetWindow(window.window(), GW_OWNER), nullptr);
    EXPECT_EQ(GetMenu(window.window()), nullptr);
    EXPECT_EQ(GetWindowLongPtrW(window.window(), GWL_EXSTYLE), WS_EX_WINDOWEDGE);  // which every caption brings
    EXPECT_EQ(app_state().main_window, window.window());
}

TEST(WindowMessages, TheBackgroundIsNeverErased)
{
    const TestFolder folder;
    const OwnWindow window;
    HDC dc = GetDC(window.window());
    SetPixel(dc, 3, 3, RGB(1, 2, 3));
    EXPECT_EQ(SendMessageW(window.window(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 1);
    EXPECT_EQ(GetPixel(dc, 3, 3), RGB(1, 2, 3));
    ReleaseDC(window.window(), dc);
}

TEST(WindowMessages, AButtonThatIsToBeDrawnIsAnsweredWithOne)
{
    const TestFolder folder;
    const OwnWindow window;
    HDC dc = GetDC(window.control(kPublishButton));
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.CtlID = kPublishButton;
    item.hwndItem = window.control(kPublishButton);
    item.hDC = dc;
    item.rcItem = {0, 0, 100, 36};
    EXPECT_EQ(SendMessageW(window.window(), WM_DRAWITEM, kPublishButton, reinterpret_cast<LPARAM>(&item)), 1);
    EXPECT_EQ(GetPixel(dc, 50, 0), colorref(kBorder));
    ReleaseDC(window.control(kPublishButton), dc);
}

TEST(WindowMessages, ANewSizeHasTheWholeWindowPaintedAnew)
{
    const TestFolder folder;
    const OwnWindow window;
    const Size client = window.client();
    ValidateRect(window.window(), nullptr);
    SendMessageW(window.window(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.width, client.height));
    EXPECT_EQ(area_to_paint(window.window()), (Rect{0, 0, client.width, client.height}));
}

TEST(WindowMessages, MinimisingNeitherLaysOutNorPaints)
{
    const TestFolder folder;
    const OwnWindow window;
    move_close_button(window);
    ValidateRect(window.window(), nullptr);
    SendMessageW(window.window(), WM_SIZE, SIZE_MINIMIZED, 0);
    EXPECT_EQ(window.place(kCloseButton), kMoved);
    EXPECT_EQ(area_to_paint(window.window()), Rect());
}

TEST(WindowMessages, AfterResizingThePictureIsAsIfPaintedAnew)
{
    const TestFolder folder;
    const OwnWindow window;
    for (const Size size : {Size{900, 850}, Size{700, 640}}) {
        SetWindowPos(window.window(), nullptr, 0, 0, size.width, size.height, SWP_NOMOVE | SWP_NOZORDER);
        answer_messages();
        const Picture after(window.window());
        EXPECT_TRUE(after == repainted(window.window())) << size.width;
    }
}

TEST(WindowMessages, AChangeOfDpiLaysOutEvenWhenTheRectangleStays)
{
    const TestFolder folder;
    const OwnWindow window;
    // Large enough for the smallest size at the new DPI, which would change the rectangle after all.
    SetWindowPos(window.window(), nullptr, 0, 0, 1300, 1000, SWP_NOMOVE | SWP_NOZORDER);
    move_close_button(window);
    const RECT before = window.rectangle();
    window.change_dpi(144, before);
    const RECT after = window.rectangle();
    EXPECT_TRUE(EqualRect(&before, &after));
    EXPECT_EQ(app_state().dpi, 144U);
    EXPECT_EQ(window.place(kCloseButton), main_layout(window.client().width, 144).close);
}

TEST(WindowMessages, AChangeOfDpiNeitherRaisesNorActivatesTheWindow)
{
    const TestFolder folder;
    const OwnWindow window;
    HWND other = make_other_window();
    ASSERT_EQ(GetActiveWindow(), other);
    const RECT rectangle = window.rectangle();
    window.change_dpi(144, {rectangle.left + 5, rectangle.top + 5, rectangle.left + 1205, rectangle.top + 955});
    EXPECT_EQ(window.rectangle().left, rectangle.left + 5);
    EXPECT_EQ(GetActiveWindow(), other);
    EXPECT_EQ(GetWindow(window.window(), GW_HWNDPREV), other);
    DestroyWindow(other);
}

TEST(WindowMessages, ItsEndTakesTheSettingsWindowAlong)
{
    const TestFolder folder;
    OwnWindow window;
    HWND settings = make_other_window();
    app_state().settings_window = settings;
    window.destroy();
    EXPECT_FALSE(IsWindow(settings));
}

TEST(WindowMessages, OtherCommandsDoNothing)
{
    const TestFolder folder;
    const OwnWindow window;
    SetWindowTextW(window.control(kNamePreview), L"as it was");
    for (const int id : std::initializer_list<int>{0, 1, 2, 1000, kNamePreview, 1019, kShowPasswordButton})
        SendMessageW(window.window(), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0);
    SendMessageW(window.window(), WM_COMMAND, MAKEWPARAM(kNameField, EN_KILLFOCUS), 0);
    answer_messages();
    EXPECT_TRUE(IsWindow(window.window()));
    EXPECT_FALSE(app_state().is_busy);
    EXPECT_EQ(window.text(kStatusLine), L"");
    EXPECT_EQ(window.text(kNamePreview), L"as it was");
}

TEST(NameField, ShowsWhatToTypeAlsoWhileItIsFocused)
{
    const TestFolder folder;
    const OwnWindow window;
    HWND field = window.control(kNameField);
    wchar_t banner[32] = {};
    EXPECT_TRUE(SendMessageW(field, EM_GETCUEBANNER, reinterpret_cast<WPARAM>(banner), 32));
    EXPECT_STREQ(banner, L"name");

    SetFocus(field);
    HideCaret(field);
    const Picture empty = repainted(field);
    SetWindowTextW(field, L" ");
    EXPECT_NE(repainted(field), empty);
}
