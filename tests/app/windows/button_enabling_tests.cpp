// A drawn button that is enabled or disabled.
#include "kit/windows/own_window.h"

#include <gtest/gtest.h>

namespace {

constexpr int kPublish = 1006;

class ButtonEnabling : public testing::Test {
protected:
    HWND button() const { return m_window.control(kPublish); }
    bool has_to_be_painted() const { return GetUpdateRect(button(), nullptr, FALSE) != 0; }

    TestFolder m_folder;
    OwnWindow m_window;
};

}  // namespace

TEST_F(ButtonEnabling, NobodyWaitsWhileItIsPainted)
{
    for (const BOOL is_enabled : {FALSE, TRUE}) {
        UpdateWindow(button());
        ASSERT_FALSE(has_to_be_painted());
        EnableWindow(button(), is_enabled);
        EXPECT_TRUE(has_to_be_painted());
        EXPECT_EQ(IsWindowEnabled(button()), is_enabled);
    }
}
