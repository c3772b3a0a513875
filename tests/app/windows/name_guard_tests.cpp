// What the main window makes of a look at the kept names: the results are the tests' own.
#include "app/windows/name_guard.h"

#include "app/windows/busy_guard.h"
#include "app/windows/cards.h"
#include "app/windows/controls.h"
#include "kit/wallet_files.h"
#include "kit/windows/own_window.h"
#include "kit/windows/picture.h"
#include "kit/windows/spoken.h"
#include "paymail/kept_names.h"
#include "ui/windows/keyboard.h"
#include "wallet_bridge/connect.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr NameState kRight = NameState::pays_wallet;
constexpr NameState kOther = NameState::other_address;
constexpr NameState kUnclear = NameState::unclear;

constexpr wchar_t kKept[] = L"Vaultry kept ann@x.org, zoe@y.org";
constexpr wchar_t kMarked[] = L"Vaultry kept zoe@y.org (pays somebody else), ann@x.org";
constexpr wchar_t kWarning[] = L"zoe@y.org pays somebody else. Look who changed it on the site, then publish it again.";
constexpr wchar_t kAsking[] = L"Asking whether the names pay this wallet. It takes a minute at most.";

// A folder with a wallet that has two kept names, before there is a window.
class Names {
public:
    Names()
    {
        bind_to_wallet(m_folder, phrase_wallet());
        for (const char* name : {"ann@x.org", "zoe@y.org"})
            EXPECT_TRUE(keep_payname({name, public_identity().public_key, public_identity().address}));
    }

private:
    TestFolder m_folder;
};

class NameGuard : public testing::Test {
protected:
    // A look runs, whose worker is the test.
    NameGuard() { begin(); }

    static void begin() { app_state().look = std::make_shared<RunningLook>(); }
    static std::shared_ptr<RunningLook> look() { return app_state().look; }

    void finish(const std::shared_ptr<RunningLook>& which, std::vector<LookedAtName> seen,
                const PublicIdentity& of = public_identity()) const
    {
        auto result = std::make_unique<GuardResult>(GuardResult{which, of, std::move(seen)});
        ASSERT_TRUE(post_text(window.window(), MsgGuardResult, std::move(result)));
        answer_messages();
    }
    void finish(std::vector<LookedAtName> seen) const { finish(look(), std::move(seen)); }

    void press() const { SendMessageW(window.window(), WM_COMMAND, MAKEWPARAM(kKeptNames, STN_CLICKED), 0); }
    std::wstring status() const { return window.text(kStatusLine); }
    std::wstring line() const { return window.text(kKeptNames); }
    bool can_be_pressed() const
    {
        const LONG_PTR style = GetWindowLongPtrW(window.control(kKeptNames), GWL_STYLE);
        EXPECT_EQ((style & WS_TABSTOP) != 0, (style & SS_NOTIFY) != 0);
        return (style & WS_TABSTOP) != 0;
    }

    const Names names;
    const OwnWindow window;
};

}  // namespace

TEST_F(NameGuard, ANameThatPaysSomebodyElseIsToldAndMarked)
{
    finish({{"ann@x.org", kRight}, {"zoe@y.org", kOther}});
    EXPECT_EQ(status(), kWarning);
    EXPECT_EQ(line(), kMarked);
    EXPECT_EQ(look(), nullptr);
}

TEST_F(NameGuard, NothingIsSaidWhenEverythingIsRightOrNothingIsKnown)
{
    set_status(L"as it was");
    finish({{"ann@x.org", kRight}, {"zoe@y.org", kUnclear}});
    EXPECT_EQ(status(), L"as it was");
    EXPECT_EQ(line(), kKept);
}

TEST_F(NameGuard, TheMarkStaysUntilTheNameIsSeenToBeRight)
{
    finish({{"zoe@y.org", kOther}});
    begin();
    finish({{"zoe@y.org", kUnclear}});
    EXPECT_EQ(line(), kMarked);
    begin();
    finish({{"zoe@y.org", kRight}});
    EXPECT_EQ(line(), kKept);
}

TEST_F(NameGuard, TheMarkGoesWhenAPublishHasSeenTheNameToBeRight)
{
    finish({{"zoe@y.org", kOther}});
    for (const char* other : {"ann@x.org", "zoe@y.org"}) {
        ASSERT_TRUE(post_text(window.window(), MsgNameKept, std::make_unique<KeptName>(KeptName{other})));
        answer_messages();
        refresh_wallet_card();
        EXPECT_EQ(line(), std::string(other) == "zoe@y.org" ? kKept : kMarked);
    }
}

TEST_F(NameGuard, AUserWhoAsksIsToldWhateverIsFound)
{
    press();
    EXPECT_EQ(status(), kAsking);
    finish({{"ann@x.org", kRight}, {"zoe@y.org", kRight}});
    EXPECT_EQ(status(), L"All 2 names pay this wallet.");
    begin();
    press();
    finish({{"ann@x.org", kRight}, {"zoe@y.org", kUnclear}});
    EXPECT_EQ(status(), L"No answer about zoe@y.org. Look whether the site opens and the plugin is active there, or "
                        L"publish again.");
    begin();
    press();
    finish({{"ann@x.org", kRight}, {"zoe@y.org", kOther}});
    EXPECT_EQ(status(), kWarning);
}

TEST_F(NameGuard, APressBeginsNoSecondLookBesideOneThatRuns)
{
    const auto running = look();
    press();
    EXPECT_EQ(look(), running);
    stop_name_guard();
    press();
    EXPECT_EQ(look(), running);
    EXPECT_TRUE(app_state().user_awaits_look);
}

TEST_F(NameGuard, TheNextLookBehindTheUsersBackIsSilentAgain)
{
    press();
    finish({{"ann@x.org", kRight}});
    set_status(L"as it was");
    begin();
    finish({{"ann@x.org", kRight}});
    EXPECT_EQ(status(), L"as it was");
}

TEST_F(NameGuard, AFlowGoesFirst)
{
    press();
    const auto running = look();
    set_busy(kPublishButton);
    set_status(L"of the flow");
    EXPECT_FALSE(running->goes_on);
    finish({{"ann@x.org", kRight}, {"zoe@y.org", kOther}});
    EXPECT_EQ(status(), L"of the flow");
    EXPECT_EQ(line(), kKept);
    clear_busy();
}

TEST_F(NameGuard, NothingIsToldOfALookThatEndsAfterTheFlowEither)
{
    const auto running = look();
    set_busy(kPublishButton);
    clear_busy();
    set_status(L"of the flow");
    finish(running, {{"zoe@y.org", kOther}});
    EXPECT_EQ(status(), L"of the flow");
    EXPECT_EQ(line(), kKept);
}

TEST_F(NameGuard, UnbindGoesFirstToo)
{
    const auto running = look();
    on_unbind_pressed();
    EXPECT_FALSE(running->goes_on);
    finish(running, {{"zoe@y.org", kOther}});
    EXPECT_EQ(status(), L"Unbound. Connect again to pick a wallet in Vaultry.");
    EXPECT_EQ(line(), L"");
}

TEST_F(NameGuard, WhatWasSeenForAnotherWalletOrAddressIsNotTold)
{
    PublicIdentity before = public_identity();
    before.address = "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH";
    finish(look(), {{"zoe@y.org", kOther}}, before);
    EXPECT_EQ(status(), L"");
    EXPECT_EQ(line(), kKept);
}

TEST_F(NameGuard, APressWhileAFlowRunsOnlySaysSo)
{
    set_busy(kPublishButton);
    press();
    EXPECT_EQ(status(), L"Already working.");
    EXPECT_FALSE(app_state().user_awaits_look);
    clear_busy();
}

TEST_F(NameGuard, ASecondClickOfADoubleClickIsNoPress)
{
    SendMessageW(window.window(), WM_COMMAND, MAKEWPARAM(kKeptNames, STN_DBLCLK), 0);
    EXPECT_EQ(status(), L"");
}

TEST_F(NameGuard, TheLineCanBePressedWhileItNamesSomething)
{
    EXPECT_TRUE(can_be_pressed());
    SetFocus(window.control(kKeptNames));
    disconnect_wallet();
    refresh_wallet_card();
    EXPECT_FALSE(can_be_pressed());
    EXPECT_EQ(GetFocus(), window.control(kInstallButton));
    press();
    EXPECT_EQ(status(), L"");
}

TEST_F(NameGuard, AScreenReaderHearsAButtonAndTheMarkInItsName)
{
    finish({{"zoe@y.org", kOther}});
    const Spoken heard = spoken(window.control(kKeptNames));
    EXPECT_EQ(heard.name, kMarked);
    EXPECT_EQ(heard.role, ROLE_SYSTEM_PUSHBUTTON);
    EXPECT_TRUE(heard.is(STATE_SYSTEM_FOCUSABLE));
    EXPECT_EQ(heard.action, L"Press");
}

TEST_F(NameGuard, AScreenReaderHearsTheWarning)
{
    std::vector<std::wstring> sentences;
    const HeardEvents events(EVENT_OBJECT_LIVEREGIONCHANGED, EVENT_OBJECT_LIVEREGIONCHANGED, [&](DWORD, HWND label) {
        if (label == window.control(kStatusLine)) sentences.push_back(text_of(label));
    });
    finish({{"zoe@y.org", kOther}});
    EXPECT_TRUE(comes_true([&] { return !sentences.empty(); }));
    EXPECT_EQ(sentences, std::vector<std::wstring>{kWarning});
}

TEST_F(NameGuard, AScreenReaderPressesTheLine)
{
    EXPECT_EQ(Accessible(window.control(kKeptNames)).press(), S_OK);
    EXPECT_TRUE(comes_true([&] { return status() == kAsking; }));
}

TEST_F(NameGuard, EnterAndSpacePressTheLine)
{
    for (const WPARAM key : {WPARAM{VK_RETURN}, WPARAM{VK_SPACE}}) {
        set_status(L"");
        SendMessageW(window.control(kKeptNames), WM_KEYDOWN, key, 0);
        EXPECT_EQ(status(), kAsking);
    }
}

TEST_F(NameGuard, TheFocusOnTheLineIsALineUnderItsText)
{
    const HWND label = window.control(kKeptNames);
    const auto is_underlined = [&] {
        const Picture picture = repainted(label);
        return picture.at(0, picture.height() - 1) == kNoteText && picture.at(20, picture.height() - 2) == kNoteText &&
               picture.at(picture.width() - 1, picture.height() - 1) == kCard;
    };
    SetFocus(label);
    EXPECT_FALSE(is_underlined());
    set_focus_shown(window.window(), true);
    EXPECT_TRUE(is_underlined());
    SetFocus(window.control(kCloseButton));
    EXPECT_FALSE(is_underlined());
}

TEST_F(NameGuard, TheTipSaysAllOfALineThatIsCutOffAlsoWhileItTakesTheMouse)
{
    set_control_text(kKeptNames, std::string(300, 'n'));
    NMTTDISPINFOW question{};
    const HWND label = window.control(kKeptNames);
    question.hdr = {app_state().tips, reinterpret_cast<UINT_PTR>(label), TTN_GETDISPINFOW};
    question.uFlags = TTF_IDISHWND;
    SendMessageW(window.window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question));
    EXPECT_EQ(std::wstring(question.lpszText), std::wstring(300, L'n'));

    RECT place{};
    GetWindowRect(label, &place);
    put_mouse_away();
    SetCursorPos(place.left + 60, (place.top + place.bottom) / 2);
    EXPECT_TRUE(comes_true([] { return IsWindowVisible(app_state().tips) != FALSE; }));
    put_mouse_away();
}

TEST_F(NameGuard, AResultThatComesWithTheEndIsFreed)
{
    const std::weak_ptr<RunningLook> running = look();
    ASSERT_TRUE(post_text(window.window(), MsgGuardResult,
                          std::make_unique<GuardResult>(GuardResult{look(), public_identity(), {}})));
    app_state().look.reset();
    EXPECT_FALSE(running.expired());
    const_cast<OwnWindow&>(window).destroy();
    EXPECT_TRUE(running.expired());
}

TEST_F(NameGuard, MessagesOfOtherProgramsChangeNothing)
{
    set_status(L"as it was");
    const auto running = look();
    GuardResult nobodys{running, public_identity(), {{"zoe@y.org", kOther}}};
    for (const LPARAM number : {LPARAM{0}, LPARAM{1}, LPARAM{-1}, reinterpret_cast<LPARAM>(&nobodys)}) {
        ASSERT_TRUE(PostMessageW(window.window(), MsgGuardResult, 0, number));
        ASSERT_TRUE(PostMessageW(window.window(), MsgNameKept, 0, number));
    }
    answer_messages();
    EXPECT_EQ(look(), running);
    EXPECT_EQ(status(), L"as it was");
    EXPECT_EQ(line(), kKept);
    EXPECT_EQ(nobodys.names.size(), 1U);
}
