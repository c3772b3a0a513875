// Where the focus goes while a flow runs, and how the drawn controls show it.
#include "app/windows/busy_guard.h"
#include "app/windows/controls.h"
#include "app/windows/update_notice.h"
#include "kit/windows/any_window.h"
#include "kit/windows/own_window.h"
#include "kit/windows/picture.h"
#include "ui/geometry.h"
#include "ui/windows/keyboard.h"

#include <gtest/gtest.h>

#include <array>

namespace {

constexpr std::array kButtons = {kConnectButton, kUnbindButton, kSettingsButton, kInstallButton,
                                 kPublishButton, kRemoveButton, kCloseButton};

class Focus : public testing::Test {
protected:
    Focus() { put_mouse_away(); }

    void focus(int id) const
    {
        SetFocus(window.control(id));
        ASSERT_EQ(GetFocus(), window.control(id));
    }
    void use_keyboard() const { set_focus_shown(window.window(), true); }
    void use_mouse() const { set_focus_shown(window.window(), false); }

    const TestFolder folder;
    const OwnWindow window;
};

constexpr int kRing = 3;  // from the button's edge, at 96 DPI; two pixels wide

bool has_ring(HWND button, unsigned dpi = kDefaultDpi)
{
    const Picture picture = repainted(button);
    const int first = scaled(kRing, dpi);
    const int last = first + scaled(2, dpi) - 1;
    const int middle = picture.height() / 2;
    const auto is_ink = [&](int x, int y) { return picture.at(x, y) == kButtonText; };
    return is_ink(first, middle) && is_ink(last, middle) && !is_ink(first - 1, middle) && !is_ink(last + 1, middle) &&
           is_ink(picture.width() - 1 - first, middle) && is_ink(picture.width() / 2, first) &&
           is_ink(picture.width() / 2, picture.height() - 1 - first);
}

bool has_no_ring(HWND button)
{
    const Picture picture = repainted(button);
    return picture.at(kRing, picture.height() / 2) != kButtonText &&
           picture.at(picture.width() - 1 - kRing, picture.height() / 2) != kButtonText;
}

}  // namespace

// In Windows' order: a window that is minimised loses the focus before it hears that it is not active any more.
TEST_F(Focus, ComesBackToItsControlWhenTheWindowIsRestored)
{
    focus(kUnbindButton);
    SendMessageW(window.window(), WM_SYSCOMMAND, SC_MINIMIZE, 0);
    SetFocus(nullptr);
    SendMessageW(window.window(), WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, TRUE), 0);
    SendMessageW(window.window(), WM_SYSCOMMAND, SC_RESTORE, 0);
    SendMessageW(window.window(), WM_ACTIVATE, WA_ACTIVE, 0);
    answer_messages();
    EXPECT_EQ(GetFocus(), window.control(kUnbindButton));
}

TEST_F(Focus, StaysOnThePressedButtonWhileItWaitsAndAfterwards)
{
    for (const int button : {kConnectButton, kInstallButton, kPublishButton, kRemoveButton}) {
        focus(button);
        set_busy(button);
        EXPECT_EQ(GetFocus(), window.control(button));
        clear_busy();
        EXPECT_EQ(GetFocus(), window.control(button));
    }
}

TEST_F(Focus, GoesFromAButtonThatIsDisabledToTheOneThatWaits)
{
    for (const int button : {kUnbindButton, kSettingsButton, kRemoveButton}) {
        focus(button);
        set_busy(kPublishButton);
        EXPECT_EQ(GetFocus(), window.control(kPublishButton)) << button;
        clear_busy();
    }
}

TEST_F(Focus, StaysOnAControlThatIsNotDisabled)
{
    for (const int id : {int{kNameField}, int{kCloseButton}}) {
        focus(id);
        set_busy(kPublishButton);
        EXPECT_EQ(GetFocus(), window.control(id));
        clear_busy();
    }
}

TEST_F(Focus, IsNotShownBeforeTheKeyboardIsUsed)
{
    for (const int button : kButtons) {
        focus(button);
        EXPECT_TRUE(has_no_ring(window.control(button))) << button;
    }
}

TEST_F(Focus, IsShownByARingOnTheButtonThatHasItOnceTheKeyboardIsUsed)
{
    focus(kConnectButton);
    use_keyboard();
    for (const int button : kButtons) {
        focus(button);
        for (const int other : kButtons) {
            const HWND drawn = window.control(other);
            EXPECT_TRUE(other == button ? has_ring(drawn) : has_no_ring(drawn)) << other << " with focus on " << button;
        }
    }
}

TEST_F(Focus, TheRingComesAndGoesByItself)
{
    focus(kPublishButton);
    answer_messages();
    const Picture without = Picture(window.control(kPublishButton));
    use_keyboard();
    answer_messages();
    EXPECT_NE(Picture(window.control(kPublishButton)), without);
    focus(kRemoveButton);
    answer_messages();
    EXPECT_EQ(Picture(window.control(kPublishButton)), without);
}

TEST_F(Focus, IsHiddenAgainByTheMouse)
{
    use_keyboard();
    focus(kPublishButton);
    answer_messages();
    use_mouse();
    answer_messages();
    const Picture seen = Picture(window.control(kPublishButton));
    EXPECT_TRUE(has_no_ring(window.control(kPublishButton)));
    EXPECT_EQ(seen, Picture(window.control(kPublishButton)));
}

TEST_F(Focus, ItsRingGrowsWithTheDpi)
{
    use_keyboard();
    for (const unsigned dpi : {120U, 144U, 192U, 288U}) {
        window.change_dpi(dpi, {0, 0, 2280, 1900});
        focus(kPublishButton);
        EXPECT_TRUE(has_ring(window.control(kPublishButton), dpi)) << dpi;
        save_picture(repainted(window.window()), "focus-" + std::to_string(dpi));
    }
}

TEST_F(Focus, OnTheLinkIsALineUnderItsText)
{
    app_state().update_is_available = true;
    refresh_version_label();
    const HWND label = window.control(kVersionLabel);
    const auto is_underlined = [&] {
        const Picture picture = repainted(label);
        return picture.at(0, picture.height() - 1) == kLinkText && picture.at(20, picture.height() - 2) == kLinkText &&
               picture.at(picture.width() - 1, picture.height() - 1) != kLinkText;
    };
    focus(kVersionLabel);
    EXPECT_FALSE(is_underlined());
    use_keyboard();
    EXPECT_TRUE(is_underlined());
    focus(kCloseButton);
    EXPECT_FALSE(is_underlined());
}
