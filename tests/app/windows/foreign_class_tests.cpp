// A window class is a name that any program may use: what the program makes of a window of its own class that is not
// its own. docs/security.md names this as a limit.
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"

#include <gtest/gtest.h>

TEST(ForeignClass, AWindowOfTheProgramsClassKeepsItFromStarting)
{
    const TestFolder folder;
    WNDCLASSW foreign{};
    foreign.lpfnWndProc = DefWindowProcW;
    foreign.lpszClassName = L"CorvaneBrassletShell";
    ASSERT_NE(RegisterClassW(&foreign), 0);
    const HWND window =
        CreateWindowExW(0, foreign.lpszClassName, L"", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(run_to_its_end(), 0U);
    EXPECT_FALSE(folder.has("payname"));
    DestroyWindow(window);
    UnregisterClassW(foreign.lpszClassName, nullptr);
}
