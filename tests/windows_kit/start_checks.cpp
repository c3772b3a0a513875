// The program starts.
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"

#include <gtest/gtest.h>

namespace {

TEST(Start, ShowsItsWindowAndEndsWhenItIsClosed)
{
    const TestFolder folder;
    const RunningProgram program;
    EXPECT_TRUE(program.answers());
    EXPECT_EQ(program.close(), 0u);
}

}  // namespace
