// check.exe: GoogleTest's, with every check started afresh.
#include "kit/test_program/afresh.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace {

class StartingAfresh : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { start_afresh(); }
};

}  // namespace

int main(int count, char** arguments)
{
    testing::InitGoogleMock(&count, arguments);
    testing::UnitTest::GetInstance()->listeners().Append(std::make_unique<StartingAfresh>().release());
    return RUN_ALL_TESTS();
}
