#include "site/site_refusal.h"

#include <gtest/gtest.h>

namespace {

HttpReply reply(std::int32_t status, const std::string& body)
{
    HttpReply made;
    made.status = status;
    made.body = body;
    return made;
}

constexpr wchar_t kWrongPassword[] = L"WordPress refused that application password.";
constexpr wchar_t kLoginHidden[] = L"The site hid the login. Press Install plugin and upload the zip over the old one.";

}  // namespace

TEST(ReplyMessage, IsTheMessageTextOfAJsonObject)
{
    EXPECT_EQ(reply_message(R"({"code":"x","message":"Nope"})"), "Nope");
    EXPECT_EQ(reply_message(R"({"message":"50% of %s\n"})"), "50% of %s\n");
}

TEST(ReplyMessage, IsEmptyForEverythingElse)
{
    EXPECT_EQ(reply_message(""), "");
    EXPECT_EQ(reply_message("<html>message</html>"), "");
    EXPECT_EQ(reply_message("{\"message\":\"Nope\"} trailing"), "");
    EXPECT_EQ(reply_message(R"(["message"])"), "");
    EXPECT_EQ(reply_message(R"("message")"), "");
    EXPECT_EQ(reply_message(R"({"code":"x"})"), "");
    EXPECT_EQ(reply_message(R"({"message":7})"), "");
    EXPECT_EQ(reply_message(R"({"message":{"message":"x"}})"), "");
    EXPECT_EQ(reply_message("{\"message\":\"\xff\"}"), "");
    EXPECT_EQ(reply_message(std::string(10'000, '[')), "");
}

TEST(RefusalMessage, KnowsTheCodesOfWordPress)
{
    EXPECT_EQ(refusal_message(reply(401, R"({"code":"incorrect_password"})")), kWrongPassword);
    EXPECT_EQ(refusal_message(reply(401, R"({"code":"invalid_username"})")),
              L"WordPress does not know that user. Use the username from the profile page.");
    EXPECT_EQ(refusal_message(reply(401, R"({"code":"rest_not_logged_in"})")), kLoginHidden);
    EXPECT_EQ(refusal_message(reply(403, R"({"code":"rest_forbidden"})")), kLoginHidden);
    EXPECT_EQ(refusal_message(reply(403, "<html>rest_forbidden</html>")), kLoginHidden);
}

TEST(RefusalMessage, TakesTheFirstCodeOfTheTableNotOfTheBody)
{
    EXPECT_EQ(refusal_message(reply(403, "rest_forbidden incorrect_password")), kWrongPassword);
    EXPECT_EQ(refusal_message(reply(403, "rest_not_logged_in invalid_username")),
              L"WordPress does not know that user. Use the username from the profile page.");
    EXPECT_EQ(refusal_message(reply(401, R"({"message":"Nope","code":"invalid_username incorrect_password"})")),
              kWrongPassword);
}

TEST(RefusalMessage, ShowsTheMessageOfAnUnknownCode)
{
    EXPECT_EQ(refusal_message(reply(401, R"({"message":"Nope"})")), L"Nope");
    EXPECT_EQ(refusal_message(reply(403, "{\"message\":\"Zugang f\xc3\xbcr %s gesperrt\"}")),
              L"Zugang f\u00fcr %s gesperrt");
}

TEST(RefusalMessage, BlamesThePasswordWhenTheSiteSaysNothing)
{
    EXPECT_EQ(refusal_message(reply(401, "<html></html>")), kWrongPassword);
    EXPECT_EQ(refusal_message(reply(403, "")), kWrongPassword);
    EXPECT_EQ(refusal_message(reply(403, R"({"message":""})")), kWrongPassword);
}

TEST(RefusalMessage, IsEmptyForEveryOtherStatus)
{
    for (const std::int32_t status : {0, 200, 302, 400, 402, 404, 500})
        EXPECT_EQ(refusal_message(reply(status, R"({"message":"incorrect_password"})")), L"") << status;
}
