#include "flows/publish.h"

#include "platform/text_conversion.h"

#include <gtest/gtest.h>

namespace {

HttpReply reply(std::int32_t status, const std::string& body, const std::string& error = "")
{
    HttpReply made;
    made.status = status;
    made.body = body;
    made.error = error;
    return made;
}

std::string kept(const std::string& body)
{
    return kept_sentence({true, ""}, "alice", "example.org", reply(200, body));
}

}  // namespace

TEST(PublishRefusal, IsEmptyWhenTheSiteTookTheName)
{
    EXPECT_EQ(publish_refusal(reply(200, "{}")), "");
    EXPECT_EQ(publish_refusal(reply(299, "<html>")), "");
}

TEST(PublishRefusal, SaysWhatWordPressRefused)
{
    EXPECT_EQ(publish_refusal(reply(401, "incorrect_password")), "WordPress refused that application password.");
    EXPECT_EQ(publish_refusal(reply(403, R"({"message":"Nope"})")), "Nope");
}

TEST(PublishRefusal, AsksForThePluginWhenTheRouteIsMissing)
{
    EXPECT_EQ(publish_refusal(reply(404, R"({"message":"No route"})")), "Install the plugin first.");
}

TEST(PublishRefusal, KnowsARefusalAndAMissingRouteByTheirStatusThoughTheTransferFailed)
{
    EXPECT_EQ(publish_refusal(reply(401, "", "The site did not answer.")),
              "WordPress refused that application password.");
    EXPECT_EQ(publish_refusal(reply(404, R"({"message":"No")", "The site did not answer.")),
              "Install the plugin first.");
}

TEST(PublishRefusal, ShowsTheMessageThenTheTransportErrorThenItsOwnSentence)
{
    EXPECT_EQ(publish_refusal(reply(500, R"({"message":"Full"})", "The site did not answer.")), "Full");
    EXPECT_EQ(publish_refusal(reply(0, "", "The site did not answer.")), "The site did not answer.");
    EXPECT_EQ(publish_refusal(reply(0, "", "Could not reach the site.")), "Could not reach the site.");
    EXPECT_EQ(publish_refusal(reply(500, "<html>")), "The site did not take the name.");
    for (const std::int32_t status : {199, 300, 302, 400, 402, 405})
        EXPECT_EQ(publish_refusal(reply(status, "")), "The site did not take the name.") << status;
    EXPECT_EQ(publish_refusal(reply(0, "")), "The site did not take the name.");
}

TEST(PublishRefusal, ACutAnswerOf200IsNoSuccess)
{
    EXPECT_EQ(publish_refusal(reply(200, R"({"ok":tr)", "The site did not answer.")), "The site did not answer.");
}

TEST(PublishedHost, IsTheSitesOwnInLowerCase)
{
    EXPECT_EQ(published_host(reply(200, R"({"host":"WWW.Example.ORG"})"), "typed.org"), "www.example.org");
}

TEST(PublishedHost, IsInItsAsciiForm)
{
    EXPECT_EQ(published_host(reply(200, R"({"host":"b\u00fccher.example"})"), "typed.org"), "xn--bcher-kva.example");
    EXPECT_EQ(published_host(reply(200, ""), "b\xC3\xBC"
                                             "cher.example"),
              "xn--bcher-kva.example");
}

TEST(PublishedHost, IsTheTypedOneWhenTheReplyNamesNone)
{
    for (const char* body :
         {"", "<html>", "{}", "[]", R"({"host":""})", R"({"host":7})", R"({"host":null})", R"(["host"])"})
        EXPECT_EQ(published_host(reply(200, body), "typed.org"), "typed.org") << body;
}

TEST(KeptSentence, NamesThePaymailAndTheOtherNamesOfTheSite)
{
    EXPECT_EQ(kept(R"({"aliases":["alice","bob"]})"),
              "Vaultry kept alice@example.org. Still on the site: bob@example.org.");
    EXPECT_EQ(kept(R"({"aliases":["bob","alice","c.d"]})"),
              "Vaultry kept alice@example.org. Still on the site: bob@example.org, c.d@example.org.");
    EXPECT_EQ(kept(R"({"aliases":["alice","Alice"]})"),
              "Vaultry kept alice@example.org. Still on the site: Alice@example.org.");
}

TEST(KeptSentence, ALongListIsCutWhereTheStatusLineEnds)
{
    std::string names = R"({"aliases":["x\u202ey")";
    for (int i = 0; i < 1000; ++i)
        names += ",\"bob\"";
    const std::string sentence = kept(names + "]}");
    EXPECT_TRUE(sentence.starts_with("Vaultry kept alice@example.org. Still on the site: xy@example.org, bob@example"));
    EXPECT_TRUE(sentence.ends_with("\u2026."));
    EXPECT_EQ(widen(sentence).size(), std::string("Vaultry kept alice@example.org. Still on the site: .").size() + 160);
}

TEST(KeptSentence, AddsNoListWithoutOtherNames)
{
    for (const char* body :
         {R"({"aliases":["alice"]})", R"({"aliases":[]})", R"({"aliases":"bob"})", R"({"aliases":{"a":"bob"}})",
          R"({"aliases":[7,null,["bob"],{"x":"bob"},true]})", "{}", "<html>", "", R"(["bob"])"})
        EXPECT_EQ(kept(body), "Vaultry kept alice@example.org.") << body;
}

TEST(KeptSentence, SkipsElementsThatAreNoText)
{
    EXPECT_EQ(kept(R"({"aliases":[7,"bob",null]})"),
              "Vaultry kept alice@example.org. Still on the site: bob@example.org.");
}

TEST(KeptSentence, IsTheVerifiersWhenTheNameWasNotKept)
{
    const HttpReply taken = reply(200, R"({"aliases":["bob"]})");
    EXPECT_EQ(kept_sentence({false, "The site did not publish the key."}, "alice", "example.org", taken),
              "The site did not publish the key.");
    EXPECT_EQ(kept_sentence({false, ""}, "alice", "example.org", taken), "Vaultry did not keep the name.");
}
