#include "update/update_check.h"

#include <gtest/gtest.h>

namespace {

HttpReply reply_with(std::int32_t status, const std::string& error = {})
{
    HttpReply reply;
    reply.status = status;
    reply.body = "Version 9.0";
    reply.error = error;
    return reply;
}

}  // namespace

TEST(PageRequest, HasItsLimits)
{
    const HttpRequest request = page_request("https://brasslet.test/page");
    EXPECT_EQ(request.url, "https://brasslet.test/page");
    EXPECT_EQ(request.user_agent, "Brasslet/0.001");
    EXPECT_EQ(request.connect_timeout, std::chrono::seconds(8));
    EXPECT_EQ(request.transfer_timeout, std::chrono::seconds(15));
    EXPECT_EQ(request.redirects, 5);
    EXPECT_TRUE(request.check_certificate);
    EXPECT_FALSE(request.pin_wallet_service);
}

TEST(BuildInReply, CountsOnlyInASuccess)
{
    for (const std::int32_t status : {200, 204, 301, 399})
        EXPECT_EQ(build_in_reply(reply_with(status)), 9000) << status;
    for (const std::int32_t status : {0, 100, 199, 400, 404, 500})
        EXPECT_EQ(build_in_reply(reply_with(status)), -1) << status;
    EXPECT_EQ(build_in_reply(reply_with(200, "Timeout was reached")), -1);
}
