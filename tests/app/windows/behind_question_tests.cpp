// The main window while the question about a newer build stands before it: nothing in it is pressed, by no road, and
// who starts the program again is led to the question.
#include "app/windows/controls.h"
#include "app/windows/workers.h"
#include "kit/test_folder.h"
#include "kit/windows/own_window.h"
#include "kit/windows/running_program.h"
#include "kit/windows/spoken.h"
#include "kit/windows/stalled_site.h"

#include <gtest/gtest.h>

#include <future>

namespace {

constexpr int kButtons[] = {kConnectButton, kUnbindButton, kSettingsButton, kInstallButton,
                            kPublishButton, kRemoveButton, kCloseButton};

HWND find_question()
{
    const HWND box = FindWindowW(L"#32770", L"Brasslet");
    return IsWindowVisible(box) ? box : nullptr;
}

class BehindTheQuestion : public testing::Test {
protected:
    HWND ask() const
    {
        PostMessageW(program.window(), MsgUpdateResult, 3, 0);
        EXPECT_TRUE(becomes_true([] { return find_question() != nullptr; }));
        EXPECT_FALSE(IsWindowEnabled(program.window()));
        return find_question();
    }
    void answer() const
    {
        PostMessageW(GetDlgItem(find_question(), IDNO), BM_CLICK, 0, 0);
        EXPECT_TRUE(becomes_true([&] { return IsWindowEnabled(program.window()) != FALSE; }));
    }
    void expect_nothing_was_pressed() const
    {
        EXPECT_TRUE(program.answers());
        EXPECT_TRUE(program.is_running());
        EXPECT_EQ(program.text(kStatusLine), L"");
        EXPECT_EQ(find_settings_window(), nullptr);
        EXPECT_NE(find_question(), nullptr);
    }
    // While another window is in front, which has to answer meanwhile.
    void start_again_from_elsewhere() const
    {
        HWND other = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr,
                                     nullptr, nullptr);
        SetForegroundWindow(other);
        ASSERT_TRUE(comes_true([&] { return GetForegroundWindow() == other; }));
        auto second = std::async(std::launch::async, run_to_its_end);
        EXPECT_TRUE(comes_true([&] { return second.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
        EXPECT_EQ(second.get(), 0U);
        DestroyWindow(other);
    }

    const TestFolder folder;
    const StalledSite road{"corvane.example"};  // the program's own look for a newer build never ends
    const RunningProgram program;
};

}  // namespace

TEST_F(BehindTheQuestion, AScreenReaderPressesNoButton)
{
    ask();
    for (const int id : kButtons)
        EXPECT_EQ(Accessible(program.control(id)).press(), DISP_E_MEMBERNOTFOUND) << id;
    EXPECT_EQ(Accessible(program.control(kVersionLabel)).press(), DISP_E_MEMBERNOTFOUND);
    expect_nothing_was_pressed();
}

TEST_F(BehindTheQuestion, AScreenReaderHearsThatNoButtonCanBePressed)
{
    EXPECT_FALSE(spoken(program.control(kUnbindButton)).is(STATE_SYSTEM_UNAVAILABLE));
    ask();
    for (const int id : kButtons) {
        EXPECT_TRUE(spoken(program.control(id)).is(STATE_SYSTEM_UNAVAILABLE)) << id;
        EXPECT_FALSE(spoken(program.control(id)).is(STATE_SYSTEM_FOCUSABLE)) << id;
    }
    answer();
    for (const int id : kButtons) {
        EXPECT_FALSE(spoken(program.control(id)).is(STATE_SYSTEM_UNAVAILABLE)) << id;
        EXPECT_TRUE(spoken(program.control(id)).is(STATE_SYSTEM_FOCUSABLE)) << id;
    }
}

TEST_F(BehindTheQuestion, AClickThatIsSentToAButtonDoesNothing)
{
    ask();
    for (const int id : kButtons)
        send_to(program.control(id), BM_CLICK);
    expect_nothing_was_pressed();
}

TEST_F(BehindTheQuestion, ACommandThatCameWithTheQuestionDoesNothing)
{
    ask();
    for (const int id : {kConnectButton, kUnbindButton, kSettingsButton, kInstallButton, kPublishButton, kRemoveButton,
                         kVersionLabel, kCloseButton})
        send_to(program.window(), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                reinterpret_cast<LPARAM>(program.control(id)));
    expect_nothing_was_pressed();
}

TEST_F(BehindTheQuestion, ThePreviewStillFollowsTheNameField)
{
    ask();
    SetWindowTextW(program.control(kNamePreview), L"of before");
    SendMessageW(program.control(kNameField), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Ann"));
    EXPECT_TRUE(program.shows(kNamePreview, L"name@your-site"));
}

TEST_F(BehindTheQuestion, ButtonsArePressedAgainOnceItIsAnswered)
{
    ask();
    answer();
    EXPECT_EQ(Accessible(program.control(kUnbindButton)).press(), S_OK);
    EXPECT_TRUE(program.shows(kStatusLine, L"Unbound. Connect again to pick a wallet in Vaultry."));
}

TEST_F(BehindTheQuestion, ASecondStartBringsTheQuestionForward)
{
    const HWND question = ask();
    start_again_from_elsewhere();
    EXPECT_TRUE(comes_true([&] { return GetForegroundWindow() == question; }));
}

TEST_F(BehindTheQuestion, ASecondStartWithoutOneBringsTheWindowInWhichTheUserWorkedLast)
{
    const OpenSettingsWindow settings(program);
    start_again_from_elsewhere();
    EXPECT_TRUE(comes_true([&] { return GetForegroundWindow() == settings.window(); }));
    SetForegroundWindow(program.window());
    EXPECT_TRUE(comes_true([&] { return program.focus() != nullptr && GetForegroundWindow() == program.window(); }));
    start_again_from_elsewhere();
    EXPECT_TRUE(comes_true([&] { return GetForegroundWindow() == program.window(); }));
}
