#include "platform/environment.h"

#include <gtest/gtest.h>

using namespace std::string_view_literals;

TEST(Resource, IsEveryByteOfTheOneWithItsNumber)
{
    EXPECT_EQ(load_resource(7), "bytes\0 and \xFF more\r\n"sv);
    EXPECT_EQ(load_resource(8), "another"sv);
}

TEST(Resource, ThatIsNotThereIsEmpty)
{
    EXPECT_EQ(load_resource(9), ""sv);
    EXPECT_EQ(load_resource(1), ""sv);  // there is one, of another kind
}

TEST(Resource, StaysWhereItIs)
{
    EXPECT_EQ(load_resource(7).data(), load_resource(7).data());
}
