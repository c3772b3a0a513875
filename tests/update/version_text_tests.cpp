#include "update/version_text.h"

#include "build_values.h"

#include <gtest/gtest.h>

TEST(VersionText, IsTheOwnVersionOrWhereTheUpdateIs)
{
    EXPECT_EQ(version_text(false), "Version 0.001");
    EXPECT_EQ(version_text(true), std::string("Update available, ") + kMakersPage);
}
