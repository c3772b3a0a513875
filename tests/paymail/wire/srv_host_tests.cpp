#include "paymail/srv_host.h"

#include "kit/stand_in/stand_in.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

SrvRecord record(const std::string& target, std::uint16_t priority, std::uint16_t port = 443)
{
    return {kDnsTypeSrv, target, port, priority};
}

std::string found(const std::vector<SrvRecord>& records)
{
    stand_in().srv_records = records;
    return find_srv_host("example.org");
}

}  // namespace

TEST(SrvHost, AsksForTheBsvaliasServiceOfTheDomain)
{
    EXPECT_EQ(found({}), "");
    EXPECT_THAT(stand_in().srv_queries, testing::ElementsAre("_bsvalias._tcp.example.org"));
}

TEST(SrvHost, IsTheTargetOfTheLowestPriority)
{
    EXPECT_EQ(found({record("a.org", 20), record("b.org", 10), record("c.org", 30)}), "b.org");
    EXPECT_EQ(found({record("a.org", 65535)}), "a.org");
}

TEST(SrvHost, IsTheLastOfEqualPriority)
{
    EXPECT_EQ(found({record("a.org", 10), record("b.org", 10)}), "b.org");
}

TEST(SrvHost, IgnoresEveryOtherPortWhateverItsPriority)
{
    EXPECT_EQ(found({record("a.org", 0, 8443), record("b.org", 10)}), "b.org");
    EXPECT_EQ(found({record("b.org", 10), record("a.org", 0, 8443)}), "b.org");
}

TEST(SrvHost, IsInLowerCaseWithoutTrailingDots)
{
    EXPECT_EQ(found({record("Pay.Example.ORG..", 10)}), "pay.example.org");
}

TEST(SrvHost, SkipsRecordsOfOtherTypesAndWithoutATarget)
{
    EXPECT_EQ(found({{1, "a.org", 443, 0}, {kDnsTypeSrv, std::nullopt, 443, 0}, record("b.org", 10)}), "b.org");
}

TEST(SrvHost, ATargetThatIsNoHostDoesNotCountAsTheBest)
{
    EXPECT_EQ(found({record("localhost", 0), record("b.org", 10)}), "b.org");
    EXPECT_EQ(found({record(".", 0)}), "");
    EXPECT_EQ(found({record("a..org", 0)}), "");
}
