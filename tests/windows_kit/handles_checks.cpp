// Two hundred rounds of use: what the program holds of the system's objects does not grow.
#include "app/layout.h"
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "windows_kit/expected_controls.h"
#include "windows_kit/machine.h"
#include "windows_kit/report.h"
#include "windows_kit/used_objects.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr int kRounds = 200;
constexpr int kRoundsToSettle = 5;

// What a leak of one object in each round would exceed at once, and what Windows keeps for itself does not.
constexpr int kSlack = 50;

std::string counted(const UsedObjects& used)
{
    return std::to_string(used.handles) + " handles, " + std::to_string(used.drawing) + " drawing objects, " +
           std::to_string(used.windows) + " window objects";
}

void repaint(HWND window)
{
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void resize(const RunningProgram& program, int wider)
{
    RECT place{};
    GetWindowRect(program.window(), &place);
    SetWindowPos(program.window(), nullptr, 0, 0, place.right - place.left + wider, place.bottom - place.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void come_to_monitor_of(unsigned dpi, const RunningProgram& program)
{
    const Size size = start_client_size(dpi);
    program.change_dpi(dpi, {0, 0, size.width, size.height});
}

// What a user can do without wallet and site.
void use_everything(const RunningProgram& program)
{
    const OpenSettingsWindow settings(program);
    settings.press(kShowPasswordButton);
    settings.type(kPasswordField, L"qjzk");
    repaint(settings.window());
    settings.close_by_box();
    for (const int wider : {40, -40}) {
        resize(program, wider);
        repaint(program.window());
    }
    come_to_monitor_of(144, program);
    repaint(program.window());
    come_to_monitor_of(96, program);
    program.press(kUnbindButton);
    ASSERT_TRUE(program.shows(kStatusLine, kUnboundSentence));
    program.press(kPublishButton);
    ASSERT_TRUE(program.shows(kStatusLine, kNoWalletSentence));
    ASSERT_TRUE(becomes_true([&] { return IsWindowEnabled(program.control(kConnectButton)) != FALSE; }));
}

}  // namespace

TEST(Handles, OfAllKindsDoNotGrowWithTwoHundredRounds)
{
    const TestFolder folder;
    const RunningProgram program;
    for (int i = 0; i < kRoundsToSettle; ++i)
        use_everything(program);
    const UsedObjects before = used_objects(program.process());
    ASSERT_GT(before.handles, 10);
    ASSERT_GT(before.drawing, 10);
    ASSERT_GT(before.windows, 10);
    for (int i = 0; i < kRounds; ++i)
        use_everything(program);
    const UsedObjects after = used_objects(program.process());
    EXPECT_LT(after.handles, before.handles + kSlack);
    EXPECT_LT(after.drawing, before.drawing + kSlack);
    EXPECT_LT(after.windows, before.windows + kSlack);
    note("before: " + counted(before) + "; afterwards: " + counted(after));
}

TEST(Handles, AreCountedByWindowsItself)
{
    const TestFolder folder;
    const RunningProgram program;
    const DWORD drawing = GetGuiResources(program.process(), GR_GDIOBJECTS);
    if (is_wine() && drawing == 0)
        GTEST_SKIP() << "Wine counts neither handles nor drawing objects of another process. Here they were counted in "
                        "its tables, and the window objects over the whole desktop.";
    EXPECT_GT(drawing, 0U);
    EXPECT_GT(GetGuiResources(program.process(), GR_USEROBJECTS), 0U);
    DWORD handles = 0;
    EXPECT_TRUE(GetProcessHandleCount(program.process(), &handles));
    EXPECT_GT(handles, 0U);
}
