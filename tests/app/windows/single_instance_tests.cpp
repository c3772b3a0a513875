#include "app/windows/single_instance.h"

#include "app/windows/main_window.h"
#include "kit/test_folder.h"
#include "kit/windows/own_window.h"
#include "kit/windows/running_program.h"

#include <gtest/gtest.h>

#include <winternl.h>

#include <future>
#include <optional>
#include <thread>

namespace {

// The mutex of the starts as any other program of the session can come to hold it.
class HeldMutex {
public:
    HeldMutex() : m_mutex(CreateMutexW(nullptr, FALSE, kStartMutex))
    {
        EXPECT_EQ(WaitForSingleObject(m_mutex, 0), WAIT_OBJECT_0);
    }
    HeldMutex(const HeldMutex&) = delete;
    HeldMutex& operator=(const HeldMutex&) = delete;
    ~HeldMutex()
    {
        ReleaseMutex(m_mutex);
        CloseHandle(m_mutex);
    }

    // Whether somebody else has opened it: a start that is about to wait for its turn.
    bool is_opened_elsewhere() const
    {
        PUBLIC_OBJECT_BASIC_INFORMATION about{};
        NtQueryObject(m_mutex, ObjectBasicInformation, &about, sizeof about, nullptr);
        return about.HandleCount > 1;
    }

private:
    HANDLE m_mutex;
};

// A mutex belongs to a thread, so that a second turn in the same one would be no question.
bool another_thread_gets_the_turn()
{
    return std::async(std::launch::async, [] { return StartTurn(1).is_held(); }).get();
}

// What a copy that has just come to its window looks like from outside.
HWND make_window_of_the_class()
{
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = DefWindowProcW;
    window_class.lpszClassName = kMainWindowClass;
    RegisterClassW(&window_class);
    return CreateWindowExW(0, kMainWindowClass, nullptr, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
}

}  // namespace

TEST(StartTurn, IsHeldByOneStartAtATime)
{
    {
        const StartTurn first;
        EXPECT_TRUE(first.is_held());
        EXPECT_FALSE(another_thread_gets_the_turn());
    }
    EXPECT_TRUE(another_thread_gets_the_turn());
}

TEST(StartTurn, OfAStartThatDiedPassesToTheNext)
{
    HANDLE mutex = CreateMutexW(nullptr, FALSE, kStartMutex);
    std::thread([mutex] { WaitForSingleObject(mutex, INFINITE); }).join();
    {
        const StartTurn next(0);
        EXPECT_TRUE(next.is_held());
        EXPECT_FALSE(another_thread_gets_the_turn());
    }
    EXPECT_TRUE(another_thread_gets_the_turn());
    CloseHandle(mutex);
}

TEST(StartTurn, CannotBeHadWhereTheNameIsThatOfAnotherThing)
{
    HANDLE event = CreateEventW(nullptr, FALSE, FALSE, kStartMutex);
    ASSERT_NE(event, nullptr);
    EXPECT_FALSE(StartTurn().is_held());
    CloseHandle(event);
}

TEST(SingleInstance, AStartThatWaitedForAnotherFindsItsWindow)
{
    const TestFolder folder;
    std::optional<HeldMutex> first(std::in_place);
    auto second = std::async(std::launch::async, run_to_its_end);
    EXPECT_TRUE(becomes_true([&] { return first->is_opened_elsewhere(); }));
    HWND window = make_window_of_the_class();
    first.reset();
    EXPECT_TRUE(comes_true([&] { return second.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    EXPECT_EQ(second.get(), 0U);
    EXPECT_FALSE(folder.has(""));
    DestroyWindow(window);
}

TEST(SingleInstance, TheTurnPassesOnWhenTheWindowIsThere)
{
    const TestFolder folder;
    const RunningProgram program;
    EXPECT_TRUE(program.answers());
    EXPECT_TRUE(StartTurn(0).is_held());
}

TEST(SingleInstance, AMutexThatSomebodyHoldsForEverOnlyDelaysTheStart)
{
    const TestFolder folder;
    const HeldMutex stranger;
    const RunningProgram program;
    EXPECT_NE(program.window(), nullptr);
    EXPECT_EQ(program.close(), 0U);
}

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

// A window class is a name that any program may use. docs/security.md names this as a limit.
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
