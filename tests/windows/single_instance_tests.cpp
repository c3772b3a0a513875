#include "support/test_folder.h"
#include "windows/own_window.h"
#include "windows/running_program.h"

#include <gtest/gtest.h>

#include <future>

TEST(SingleInstance, ASecondStartEndsWithSuccessAndBringsTheFirstWindowToTheFront)
{
    const TestFolder folder;
    const RunningProgram first;
    EXPECT_EQ(run_to_its_end(), 0U);
    EXPECT_TRUE(first.is_running());
    EXPECT_EQ(FindWindowW(L"CorvaneBrassletShell", nullptr), first.window());
    EXPECT_TRUE(becomes_true([&] { return GetForegroundWindow() == first.window(); }));
}

TEST(SingleInstance, ASecondStartRestoresAMinimisedWindow)
{
    const TestFolder folder;
    const RunningProgram first;
    ShowWindow(first.window(), SW_MINIMIZE);
    ASSERT_TRUE(becomes_true([&] { return IsIconic(first.window()) != 0; }));
    EXPECT_EQ(run_to_its_end(), 0U);
    EXPECT_TRUE(becomes_true([&] { return IsIconic(first.window()) == 0; }));
}

TEST(SingleInstance, ASecondStartFindsTheFirstWindowWhateverItsTitle)
{
    const TestFolder folder;
    const RunningProgram first;
    SetWindowTextW(first.window(), L"Another title");
    EXPECT_EQ(run_to_its_end(), 0U);
}

TEST(SingleInstance, ASecondStartTakesTheFrontFromAnotherWindow)
{
    const TestFolder folder;
    const RunningProgram first;
    HWND other =
        CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(other);
    ASSERT_TRUE(comes_true([&] { return GetForegroundWindow() == other; }));
    // The window in front is told that it is no longer, and has to answer meanwhile.
    auto second = std::async(std::launch::async, run_to_its_end);
    EXPECT_TRUE(comes_true([&] { return GetForegroundWindow() == first.window(); }));
    EXPECT_TRUE(comes_true([&] { return second.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    EXPECT_EQ(second.get(), 0U);
    DestroyWindow(other);
}

TEST(SingleInstance, ASecondStartTouchesNoFile)
{
    const TestFolder first_folder;
    const RunningProgram first;
    const TestFolder second_folder;
    EXPECT_EQ(run_to_its_end(), 0U);
    EXPECT_FALSE(second_folder.has(""));
}

TEST(SingleInstance, AfterTheFirstHasEndedAnotherStarts)
{
    const TestFolder folder;
    {
        const RunningProgram first;
        EXPECT_EQ(first.close(), 0U);
    }
    const RunningProgram second;
    EXPECT_EQ(second.close(), 0U);
}
