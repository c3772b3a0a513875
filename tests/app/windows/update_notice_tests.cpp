// What the main window makes of a newer build: its label, its question, and the page.
#include "app/windows/controls.h"
#include "app/windows/workers.h"
#include "kit/test_folder.h"
#include "kit/windows/any_window.h"
#include "kit/windows/handed_to_shell.h"
#include "kit/windows/running_program.h"
#include "kit/windows/stalled_site.h"
#include "platform/windows/shell.h"
#include "ui/windows/gdi.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr char kPage[] = "https://corvane.example/brasslet";
constexpr char kMark[] = "https://corvane.example/opened-by-the-test";

class UpdateNotice : public testing::Test {
protected:
    // As the worker does.
    void announce(int build) const
    {
        PostMessageW(program.window(), MsgUpdateResult, static_cast<WPARAM>(build + 1), 0);
    }

    HWND question() const
    {
        const HWND box = FindWindowW(L"#32770", nullptr);
        return box != nullptr && GetWindow(box, GW_OWNER) == program.window() && IsWindowVisible(box) ? box : nullptr;
    }
    HWND asked() const
    {
        EXPECT_TRUE(becomes_true([&] { return question() != nullptr; }));
        return question();
    }
    void answer(int button) const
    {
        PostMessageW(GetDlgItem(asked(), button), BM_CLICK, 0, 0);
        EXPECT_TRUE(becomes_true([&] { return question() == nullptr; }));
    }
    void click_label() const
    {
        send_to(program.control(kVersionLabel), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
        send_to(program.control(kVersionLabel), WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
    }
    // Without a window manager the desktop may take the foreground, now or a moment later, when a window is closed.
    // Then the user turns to the window, until it has kept the focus for a while.
    void turn_to_window(int focused) const
    {
        constexpr int kAWhile = 20;  // looks
        int looks = 0;
        EXPECT_TRUE(becomes_true([&] {
            if (GetForegroundWindow() != program.window()) SetForegroundWindow(program.window());
            looks = program.focus() == program.control(focused) ? looks + 1 : 0;
            return looks == kAWhile;
        }));
    }
    // How often the program has opened the maker's page. The browsers run side by side, so that what the program opened
    // a moment ago may come later than the mark that the test opens now, but no later than the next one.
    std::size_t opened_by_program()
    {
        EXPECT_TRUE(open_page(kMark));
        ++marks;
        const auto count = [this](const char* address) {
            return static_cast<std::size_t>(std::ranges::count(pages.addresses(), address));
        };
        EXPECT_TRUE(becomes_true([&] { return count(kMark) == marks; }));
        return count(kPage);
    }
    // Whether a pixel of the label has the colour, or one so close to it that only a letter's edge explains it.
    bool label_shows(Colour colour) const
    {
        const Rect label = program.place(kVersionLabel);
        for (int y = label.y; y < label.bottom(); ++y) {
            for (int x = label.x; x < label.x + 200; ++x) {
                const COLORREF seen = pixel_of(program.window(), x, y);
                const int distance = abs(GetRValue(seen) - colour.red) + abs(GetGValue(seen) - colour.green) +
                                     abs(GetBValue(seen) - colour.blue);
                if (distance < 12) return true;
            }
        }
        return false;
    }

    const TestFolder folder;
    const OpenedPages pages;
    std::size_t marks = 0;
    const StalledSite road{"corvane.example"};  // the program's own check never answers
    const RunningProgram program;
};

}  // namespace

TEST_F(UpdateNotice, ANewerBuildChangesTheLabelAndAsks)
{
    announce(2);
    const HWND box = asked();
    EXPECT_EQ(text_of(box), L"Brasslet");
    EXPECT_EQ(text_of(GetDlgItem(box, 0xFFFF)), L"Version 0.002 is on the shelf.\n\nOpen the page?");
    EXPECT_NE(GetDlgItem(box, IDYES), nullptr);
    EXPECT_NE(GetDlgItem(box, IDNO), nullptr);
    EXPECT_EQ(GetDlgItem(box, IDCANCEL), nullptr);
    EXPECT_FALSE(IsWindowEnabled(program.window()));
    EXPECT_EQ(program.text(kVersionLabel), L"Update available, https://corvane.example/brasslet");
    answer(IDNO);
    EXPECT_TRUE(IsWindowEnabled(program.window()));
    EXPECT_EQ(program.text(kVersionLabel), L"Update available, https://corvane.example/brasslet");
}

TEST_F(UpdateNotice, TheQuestionNamesTheBuildThatWasFound)
{
    announce(1500);
    EXPECT_EQ(text_of(GetDlgItem(asked(), 0xFFFF)), L"Version 1.500 is on the shelf.\n\nOpen the page?");
    answer(IDNO);
    announce(2147483647);
    EXPECT_EQ(text_of(GetDlgItem(asked(), 0xFFFF)), L"Version 2147483.647 is on the shelf.\n\nOpen the page?");
}

TEST_F(UpdateNotice, YesOpensThePageAndNoDoesNot)
{
    announce(2);
    answer(IDNO);
    EXPECT_EQ(opened_by_program(), 0U);
    announce(3);
    answer(IDYES);
    EXPECT_TRUE(pages.come_to(2));
    EXPECT_EQ(opened_by_program(), 1U);
}

TEST_F(UpdateNotice, TheOwnBuildAnOlderOneAndNoneAreNoUpdate)
{
    for (const int build : {1, 0, -1}) {
        announce(build);
        EXPECT_TRUE(program.answers());
        EXPECT_EQ(question(), nullptr) << build;
        EXPECT_EQ(program.text(kVersionLabel), L"Version 0.001") << build;
    }
}

TEST_F(UpdateNotice, AClickOnTheLabelOpensThePageOnlyWhileThereIsAnUpdate)
{
    click_label();
    EXPECT_EQ(opened_by_program(), 0U);
    announce(2);
    answer(IDNO);
    click_label();
    EXPECT_TRUE(pages.come_to(2));
    EXPECT_EQ(opened_by_program(), 1U);
}

TEST_F(UpdateNotice, TheLabelTurnsIntoALink)
{
    EXPECT_TRUE(becomes_true([&] { return label_shows(kLightText); }));
    EXPECT_FALSE(label_shows(kLinkText));
    announce(2);
    answer(IDNO);
    EXPECT_TRUE(becomes_true([&] { return label_shows(kLinkText) && !label_shows(kLightText); }));
}

TEST_F(UpdateNotice, TheKeyboardOpensThePageFromTheLabelOnlyWhileThereIsAnUpdate)
{
    program.tab_to(program.control(kCloseButton));
    strike(VK_TAB);
    ASSERT_TRUE(program.has_focus(program.control(kConnectButton)));  // past the label
    announce(2);
    answer(IDNO);
    turn_to_window(kConnectButton);
    for (const WORD key : {WORD{VK_RETURN}, WORD{VK_SPACE}}) {
        const std::size_t opened = pages.addresses().size();
        program.tab_to(program.control(kVersionLabel));
        strike(key);
        EXPECT_TRUE(pages.come_to(opened + 1));
    }
    EXPECT_EQ(opened_by_program(), 2U);
    strike(VK_TAB);
    EXPECT_TRUE(program.has_focus(program.control(kConnectButton)));
}

TEST_F(UpdateNotice, IsPutToTheUserWhileTheSettingsAreOpenToo)
{
    program.press(kSettingsButton);
    announce(2);
    answer(IDNO);
    EXPECT_TRUE(program.answers());
    EXPECT_NE(FindWindowW(L"CorvaneBrassletSettings", nullptr), nullptr);
}

TEST_F(UpdateNotice, AWindowThatIsClosedDuringTheQuestionEndsWithSuccess)
{
    announce(2);
    asked();
    EXPECT_EQ(program.close(), 0U);
    EXPECT_TRUE(pages.addresses().empty());
}

TEST(UpdateCheck, AWindowThatIsClosedBeforeTheAnswerEndsWithSuccess)
{
    const TestFolder folder;
    StalledSite road("corvane.example");
    const RunningProgram program;
    ASSERT_TRUE(road.is_asked());
    EXPECT_EQ(program.close(), 0U);
}

TEST(UpdateCheck, AskedAtEveryStartWithoutHoldingUpTheWindow)
{
    const TestFolder folder;
    StalledSite road("corvane.example");
    const RunningProgram program;
    ASSERT_TRUE(road.is_asked());
    EXPECT_TRUE(program.answers());
    EXPECT_EQ(program.text(kVersionLabel), L"Version 0.001");
    road.close();
    EXPECT_EQ(program.close(), 0U);
    StalledSite again("corvane.example");
    const RunningProgram next;
    EXPECT_TRUE(again.is_asked());
}
