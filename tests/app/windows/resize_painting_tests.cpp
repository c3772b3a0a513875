// What is painted while the window changes its size, looked at where it could be seen: after Windows has prepared a
// button's place, and before the button is drawn there.
#include "app/windows/controls.h"
#include "kit/windows/own_window.h"
#include "kit/windows/picture.h"
#include "settings/windows/settings_window_controls.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <map>

namespace {

constexpr COLORREF kFill = RGB(255, 0, 255);  // nothing in the window has this colour

// The buttons of a window, watched as they are drawn. Whatever fills their places first does so with the brush that
// their parent answers.
class WatchedButtons {
public:
    explicit WatchedButtons(HWND parent) : m_parent(parent)
    {
        SetWindowSubclass(parent, watch, 0, reinterpret_cast<DWORD_PTR>(this));
    }
    WatchedButtons(const WatchedButtons&) = delete;
    WatchedButtons& operator=(const WatchedButtons&) = delete;
    ~WatchedButtons() { RemoveWindowSubclass(m_parent, watch, 0); }

    std::map<int, int> drawn;    // how often, by the button's id
    std::map<int, int> flashed;  // how often its place was filled before

private:
    static LRESULT CALLBACK watch(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR, DWORD_PTR self)
    {
        auto& watched = *reinterpret_cast<WatchedButtons*>(self);
        if (message == WM_CTLCOLORBTN) return reinterpret_cast<LRESULT>(watched.m_fill.get());
        if (message == WM_DRAWITEM) watched.look(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
        return DefSubclassProc(window, message, wparam, lparam);
    }

    void look(const DRAWITEMSTRUCT& item)
    {
        const int id = static_cast<int>(item.CtlID);
        ++drawn[id];
        for (int y = item.rcItem.top; y < item.rcItem.bottom; y += 4) {
            for (int x = item.rcItem.left; x < item.rcItem.right; x += 4) {
                const COLORREF seen = GetPixel(item.hDC, x, y);
                if (seen != kFill && seen != GetSysColor(COLOR_BTNFACE)) continue;
                ++flashed[id];
                return;
            }
        }
    }

    HWND m_parent;
    Brush m_fill{CreateSolidBrush(kFill)};
};

constexpr int kButtons[] = {kConnectButton, kUnbindButton, kSettingsButton, kInstallButton,
                            kPublishButton, kRemoveButton, kCloseButton};

void resize(const OwnWindow& window, Size size)
{
    SetWindowPos(window.window(), nullptr, 0, 0, size.width, size.height, SWP_NOMOVE | SWP_NOZORDER);
    answer_messages();
}

}  // namespace

TEST(ResizePainting, NoButtonIsFilledBeforeItIsDrawn)
{
    const TestFolder folder;
    const OwnWindow window;
    WatchedButtons buttons(window.window());
    constexpr int kSteps = 20;
    for (int step = 1; step <= kSteps; ++step)
        resize(window, {780 + 7 * step, 650 + 5 * step});
    for (const int id : kButtons)
        EXPECT_GE(buttons.drawn[id], kSteps) << id;
    EXPECT_TRUE(buttons.flashed.empty()) << buttons.flashed.begin()->first << " flashed "
                                         << buttons.flashed.begin()->second << " times";
}

TEST(ResizePainting, NoButtonIsFilledBeforeItIsDrawnWhereAWindowLay)
{
    const TestFolder folder;
    const OwnWindow window;
    WatchedButtons buttons(window.window());
    // What the system asks for when a window goes that lay over this one.
    RedrawWindow(window.window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    answer_messages();
    for (const int id : kButtons)
        EXPECT_GE(buttons.drawn[id], 1) << id;
    EXPECT_TRUE(buttons.flashed.empty());
}

TEST(ResizePainting, NoButtonOfTheSettingsIsFilledBeforeItIsDrawn)
{
    const TestFolder folder;
    const OwnWindow window;
    SendMessageW(window.control(kSettingsButton), BM_CLICK, 0, 0);
    answer_messages();
    const HWND settings = app_state().settings_window;
    WatchedButtons buttons(settings);
    RedrawWindow(settings, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    answer_messages();
    for (const int id : {kCloseSettingsButton, kShowPasswordButton})
        EXPECT_GE(buttons.drawn[id], 1) << id;
    EXPECT_TRUE(buttons.flashed.empty());
}

TEST(ResizePainting, LeavesNothingUnpaintedThatErasingWouldHaveShown)
{
    const TestFolder folder;
    const OwnWindow window;
    for (const Size size : {Size{700, 640}, Size{1000, 700}, Size{820, 660}}) {
        resize(window, size);
        const Picture resized(window.window());
        RedrawWindow(window.window(), nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
        EXPECT_TRUE(resized == Picture(window.window())) << size.width;
    }
}
