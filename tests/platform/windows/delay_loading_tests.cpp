// What becomes of calls into libraries that are bound at the first call, when there is no such library or it lacks the
// function. The import libraries are made beside the program's own (windows/missing/*.def).
#include <gtest/gtest.h>

#include <windows.h>

extern "C" {
__declspec(dllimport) INT_PTR in_a_missing_library(int);
__declspec(dllimport) INT_PTR missing_in_user32(int);
__declspec(dllimport) LONG missing_in_bcrypt(int);
}

TEST(DelayLoading, AFunctionOfAMissingLibraryReturnsNothing)
{
    for (const int call : {1, 2}) {
        SetLastError(0);
        EXPECT_EQ(in_a_missing_library(call), 0);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PROC_NOT_FOUND)) << call;
    }
}

TEST(DelayLoading, AFunctionThatALibraryLacksReturnsNothing)
{
    EXPECT_EQ(missing_in_user32(1), 0);
    EXPECT_EQ(missing_in_user32(2), 0);
}

TEST(DelayLoading, WhereZeroMeansSuccessAMissingFunctionFails)
{
    EXPECT_LT(missing_in_bcrypt(1), 0);
    EXPECT_LT(missing_in_bcrypt(2), 0);
}
