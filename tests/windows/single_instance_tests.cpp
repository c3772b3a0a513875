#include "support/test_folder.h"
#include "windows/running_program.h"

#include <gtest/gtest.h>

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
