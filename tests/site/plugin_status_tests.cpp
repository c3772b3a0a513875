#include "site/plugin_status.h"

#include <gtest/gtest.h>

namespace {

SitePlugin plugin(std::int32_t status, const std::string& body, const std::string& error = "")
{
    HttpReply reply;
    reply.status = status;
    reply.body = body;
    reply.error = error;
    return plugin_in(reply).plugin;
}

constexpr char kCurrent[] = R"({"ok":true,"login":"names"})";

std::string host(const std::string& body, std::int32_t status = 200)
{
    HttpReply reply;
    reply.status = status;
    reply.body = body;
    return plugin_in(reply).host;
}

}  // namespace

TEST(PluginStatus, IsCurrentWithTheLoginMark)
{
    EXPECT_EQ(plugin(200, kCurrent), SitePlugin::current);
    EXPECT_EQ(plugin(299, R"({"login":"names"})"), SitePlugin::current);
}

TEST(PluginStatus, IsOutdatedWithoutTheLoginMark)
{
    EXPECT_EQ(plugin(200, R"({"ok":true})"), SitePlugin::outdated);
    EXPECT_EQ(plugin(200, R"({"ok":true,"login": "names"})"), SitePlugin::outdated);
    EXPECT_EQ(plugin(200, R"({"ok":true,"login":"name"})"), SitePlugin::outdated);
}

TEST(PluginStatus, IsNoneForEveryOtherPage)
{
    EXPECT_EQ(plugin(200, "<html>ok</html>"), SitePlugin::none);
    EXPECT_EQ(plugin(200, ""), SitePlugin::none);
    for (const std::int32_t status : {0, 199, 300, 401, 404, 500})
        EXPECT_EQ(plugin(status, kCurrent), SitePlugin::none) << status;
}

TEST(PluginStatus, IsNoneWhenTheTransferFailed)
{
    EXPECT_EQ(plugin(200, kCurrent, "The site did not answer."), SitePlugin::none);
}

TEST(PluginStatus, HasTheHostThatTheSiteCallsItsOwnInItsAsciiForm)
{
    EXPECT_EQ(host(R"({"ok":true,"login":"names","host":"WWW.Example.ORG"})"), "www.example.org");
    EXPECT_EQ(host(R"({"ok":true,"host":"b\u00fccher.example"})"), "xn--bcher-kva.example");
}

TEST(PluginStatus, HasNoHostWhereTheReplyNamesNone)
{
    for (const char* body : {"", "<html>", R"({"ok":true})", R"({"host":7})", R"(["host"])"})
        EXPECT_EQ(host(body), "") << body;
    EXPECT_EQ(host(R"({"host":"example.org"})", 500), "");
}
