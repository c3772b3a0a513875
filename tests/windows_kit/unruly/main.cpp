// A test program that misbehaves, for the checks of how the kit runs test programs.
#include <gtest/gtest.h>

#include <windows.h>

TEST(Unruly, Fails)
{
    ADD_FAILURE() << "<b>on purpose</b>";
}

TEST(Unruly, Crashes)
{
    TerminateProcess(GetCurrentProcess(), 0xC0000005);
}

TEST(Unruly, NeverEnds)
{
    Sleep(INFINITE);
}

TEST(Unruly, Passes) {}

int main(int count, char** arguments)
{
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
