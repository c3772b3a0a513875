#include "wallet_bridge/shared_files.h"

#include "kit/test_folder.h"

#include <gtest/gtest.h>

TEST(DataDirectory, LiesInTheLocalApplicationData)
{
    use_local_app_data("C:\\Users\\Zo\xC3\xAB\\AppData\\Local");
    EXPECT_EQ(data_directory(), "C:\\Users\\Zo\xC3\xAB\\AppData\\Local\\Corvane");
}

TEST(DataDirectory, IsBesideTheProgramWhenThereIsNoLocalApplicationData)
{
    use_local_app_data("");
    EXPECT_EQ(data_directory(), ".\\Corvane");
}

TEST(DataDirectory, IsComputedAfreshOnEveryUse)
{
    use_local_app_data("one");
    EXPECT_EQ(data_directory(), "one\\Corvane");
    use_local_app_data("two");
    EXPECT_EQ(data_directory(), "two\\Corvane");
}

TEST(DataDirectory, MayBeLong)
{
    const std::string base = "C:\\" + std::string(5000, 'a');
    use_local_app_data(base);
    EXPECT_EQ(data_directory(), base + "\\Corvane");
}
