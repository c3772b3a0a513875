#include "site/site_reply.h"

#include "platform/text_conversion.h"

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

TEST(ShownText, IsTheTextAsItStands)
{
    EXPECT_EQ(shown_text(""), "");
    EXPECT_EQ(shown_text("Nope."), "Nope.");
    EXPECT_EQ(shown_text("<b>50 %s</b> & \"more\""), "<b>50 %s</b> & \"more\"");
    EXPECT_EQ(shown_text("\xC3\xA4 \xE6\xBC\xA2 \xD7\x90"), "\u00e4 \u6f22 \u05d0");
}

TEST(ShownText, IsOneLineWithSingleBlanks)
{
    EXPECT_EQ(shown_text(" \t\r\nOne\r\n\r\ntwo\tthree   four\n"), "One two three four");
    EXPECT_EQ(shown_text("a\xE2\x80\xA8"
                         "b\xE2\x80\xA9"
                         "c\xC2\xA0"
                         "d\xC2\x85"
                         "e\xE3\x80\x80"
                         "f"),
              "a b c d e f");
    EXPECT_EQ(shown_text(" \n "), "");
}

TEST(ShownText, LosesControlCharacters)
{
    for (const char* control : {"\x01", "\x07", "\b", "\x0e", "\x1b", "\x1f", "\x7f"})
        EXPECT_EQ(shown_text(std::string("a") + control + "b"), "ab") << static_cast<int>(*control);
    EXPECT_EQ(shown_text(std::string("a\0b", 3)), "ab");
    EXPECT_EQ(shown_text("a\xC2\x80\xC2\x9B\xC2\x9F\x62"), "ab");
}

TEST(ShownText, LosesWhatTurnsTheDirectionOrIsNotSeen)
{
    for (const char* mark :
         {"\xC2\xAD",                                                                      // soft hyphen
          "\xD8\x9C",                                                                      // Arabic letter mark
          "\xE1\xA0\x8E",                                                                  // Mongolian vowel separator
          "\xE2\x80\x8B", "\xE2\x80\x8C", "\xE2\x80\x8D", "\xE2\x80\x8E", "\xE2\x80\x8F",  // 200B to 200F
          "\xE2\x80\xAA", "\xE2\x80\xAB", "\xE2\x80\xAC", "\xE2\x80\xAD", "\xE2\x80\xAE",  // 202A to 202E
          "\xE2\x81\xA0", "\xE2\x81\xA6", "\xE2\x81\xA7", "\xE2\x81\xA8", "\xE2\x81\xA9",  // 2060 to 2069
          "\xE2\x81\xAF", "\xEF\xBB\xBF", "\xEF\xBF\xB9", "\xEF\xBF\xBB"})
        EXPECT_EQ(shown_text(std::string("a") + mark + "b"), "ab") << mark;
}

TEST(ShownText, KeepsTheNeighboursOfWhatItDrops)
{
    for (const wchar_t c : {L' ', L'~', L'\u00a1', L'\u00ac', L'\u00ae', L'\u061b', L'\u061d', L'\u2010', L'\u2027',
                            L'\u2030', L'\u205e', L'\u2070', L'\ufefe', L'\ufffc', L'\ufffd'}) {
        const std::wstring text = std::wstring(L"a") + c + L"b";
        EXPECT_EQ(widen(shown_text(narrow(text))), text) << static_cast<unsigned>(c);
    }
}

TEST(ShownText, BytesThatAreNoUtf8AreSeenAsSuch)
{
    EXPECT_EQ(shown_text("a\xFF"
                         "b"),
              "a\ufffdb");
}

TEST(ShownText, IsCutAtWhatTheStatusLineShows)
{
    EXPECT_EQ(shown_text(std::string(160, 'a')), std::string(160, 'a'));
    EXPECT_EQ(shown_text(std::string(161, 'a')), std::string(159, 'a') + "\u2026");
    EXPECT_EQ(shown_text(std::string(1'000'000, ' ') + "b"), "b");
}

TEST(ShownText, ACutLeavesNoHalfOfACharacter)
{
    std::string smiles;
    for (int i = 0; i < 200; ++i)
        smiles += "\xF0\x9F\x98\x80";
    const std::wstring shown = widen(shown_text("a" + smiles));
    EXPECT_LE(shown.size(), 160U);
    EXPECT_EQ(shown.back(), L'\u2026');
    const wchar_t before = shown[shown.size() - 2];
    EXPECT_FALSE(before >= 0xD800 && before <= 0xDBFF);
    const std::wstring other = widen(shown_text(smiles));
    const wchar_t last = other[other.size() - 2];
    EXPECT_FALSE(last >= 0xD800 && last <= 0xDBFF);
}

namespace {

HttpReply reply(std::int32_t status, const std::string& body)
{
    HttpReply made;
    made.status = status;
    made.body = body;
    return made;
}

constexpr char kWrongPassword[] = "WordPress refused that application password.";
constexpr char kLoginHidden[] = "The site hid the login. Press Install plugin and upload the zip over the old one.";

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
              "WordPress does not know that user. Use the username from the profile page.");
    EXPECT_EQ(refusal_message(reply(401, R"({"code":"rest_not_logged_in"})")), kLoginHidden);
    EXPECT_EQ(refusal_message(reply(403, R"({"code":"rest_forbidden"})")), kLoginHidden);
    EXPECT_EQ(refusal_message(reply(403, "<html>rest_forbidden</html>")), kLoginHidden);
}

TEST(RefusalMessage, TakesTheFirstCodeOfTheTableNotOfTheBody)
{
    EXPECT_EQ(refusal_message(reply(403, "rest_forbidden incorrect_password")), kWrongPassword);
    EXPECT_EQ(refusal_message(reply(403, "rest_not_logged_in invalid_username")),
              "WordPress does not know that user. Use the username from the profile page.");
    EXPECT_EQ(refusal_message(reply(401, R"({"message":"Nope","code":"invalid_username incorrect_password"})")),
              kWrongPassword);
}

TEST(RefusalMessage, ShowsTheMessageOfAnUnknownCode)
{
    EXPECT_EQ(refusal_message(reply(401, R"({"message":"Nope"})")), "Nope");
    EXPECT_EQ(refusal_message(reply(403, "{\"message\":\"Zugang f\xc3\xbcr %s gesperrt\"}")),
              "Zugang f\u00fcr %s gesperrt");
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
        EXPECT_EQ(refusal_message(reply(status, R"({"message":"incorrect_password"})")), "") << status;
}
