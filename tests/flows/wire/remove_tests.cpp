#include "flows/remove.h"

#include "kit/stand_in/stand_in.h"
#include "kit/test_folder.h"
#include "kit/wire/net_test.h"
#include "kit/wire/owned_site.h"

#include <clocale>

namespace {

using testing::HasSubstr;

constexpr char kNamePath[] = "DELETE /wp-json/brasslet/v1/name";
constexpr char kKeptNames[] = "payname/payname.json";
constexpr char kRemoved[] = "Removed alice@brasslet.test.";
constexpr char kSiteKept[] = "The site kept the name.";
constexpr char kInstall[] = "Press Install plugin and upload the zip over the one on the site.";

// No wallet is connected in any of these tests: removing needs none.
class Removing : public NetTest {
protected:
    Removing()
    {
        folder.write(kKeptNames, R"({"names":[{"paymail":"alice@brasslet.test"}]})");
        answer(kStatusPath, kCurrentPlugin);
        answer(kNamePath, R"({"ok":true,"host":"brasslet.test","aliases":[]})");
    }
    void expect_sentence(const std::string& sentence)
    {
        EXPECT_EQ(remove_sentence(settings), sentence);
        const bool is_removed = sentence.starts_with("Removed ");
        EXPECT_EQ(folder.has(kKeptNames), !is_removed);
        EXPECT_EQ(stand_in().wallet_app_notices, is_removed ? 1 : 0);
    }

    TestFolder folder;
    SiteSettings settings = owners_settings();
};

}  // namespace

TEST_F(Removing, TheNameLeavesTheSiteAndThisPcAndTheWalletApplicationIsTold)
{
    expect_sentence(kRemoved);
}

TEST_F(Removing, OtherNamesStay)
{
    folder.write(kKeptNames, R"({"names":[{"paymail":"Alice@Brasslet.test"},{"paymail":"bob@brasslet.test"},)"
                             R"({"paymail":"alice@other.test"}]})");
    EXPECT_EQ(remove_sentence(settings), kRemoved);
    EXPECT_THAT(folder.read(kKeptNames), HasSubstr("bob@brasslet.test"));
    EXPECT_THAT(folder.read(kKeptNames), HasSubstr("alice@other.test"));
    EXPECT_THAT(folder.read(kKeptNames), testing::Not(HasSubstr("Alice@Brasslet.test")));
}

TEST_F(Removing, ANameThatThisPcNeverKeptIsRemovedFromTheSite)
{
    folder.write(kKeptNames, R"({"names":[{"paymail":"bob@brasslet.test"}]})");
    EXPECT_EQ(remove_sentence(settings), kRemoved);
    EXPECT_EQ(stand_in().wallet_app_notices, 1);
}

TEST_F(Removing, AsksForThePluginWithoutALoginAndThenSendsTheNameWithOne)
{
    expect_sentence(kRemoved);
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 2U);
    expect_status_question(requests[0]);
    EXPECT_THAT(requests[1], testing::StartsWith(kNamePath));
    expect_login_in(requests[1]);
    EXPECT_THAT(requests[1], testing::EndsWith(
                                 "\r\n\r\n{\"alias\":\"alice\",\"login_pass\":\"abcdefgh\",\"login_user\":\"admin\"}"));
}

TEST_F(Removing, NeedsAName)
{
    settings.site = "";
    for (const std::string& alias : {std::string(), std::string(65, 'a'), std::string("a b"), std::string("a@b"),
                                     std::string("a/b"), std::string("\xC3\xA4")}) {
        settings.alias = alias;
        expect_sentence("Type the name to remove.");
    }
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Removing, ANameMayHave64CharactersOfEveryKind)
{
    settings.alias = std::string(60, 'a') + "+-._";
    EXPECT_EQ(remove_sentence(settings), "Removed " + std::string(60, 'a') + "+-._@brasslet.test.");
}

TEST_F(Removing, NeedsASiteAndALogin)
{
    constexpr char kAddLogin[] = "Add the site login in settings.";
    for (const char* site : {"", "http://brasslet.test", "https://brasslet.test:8443"}) {
        settings.site = site;
        expect_sentence(kAddLogin);
    }
    settings.site = "brasslet.test";
    for (const char* text : {"", "bG9ja2Vk"}) {  // none, and one that does not open here
        settings.pass = StoredPassword::of_file(text);
        expect_sentence(kAddLogin);
    }
    settings.pass = StoredPassword(SecretText("abcdefgh"));
    settings.user = "";
    expect_sentence(kAddLogin);
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Removing, ASiteWithoutADotWillDo)
{
    settings.site = "https://intranet";
    expect_sentence(kInstall);  // it was asked, and did not answer
}

TEST_F(Removing, NeedsTheCurrentPlugin)
{
    answer(kStatusPath, R"({"ok":true})");
    expect_sentence(kInstall);
    answer(kStatusPath, kCurrentPlugin, 500);
    expect_sentence(kInstall);
    answer(kStatusPath, "<html>", 404);
    expect_sentence(kInstall);
    EXPECT_EQ(server.requests().size(), 3U);
}

TEST_F(Removing, SaysWhatWordPressRefused)
{
    for (const Refusal& refusal : refused_logins()) {
        server.answer(kNamePath, refusal.reply);
        expect_sentence(refusal.sentence);
    }
}

TEST_F(Removing, ThePluginMayHaveGone)
{
    answer(kNamePath, R"({"message":"No route"})", 404);
    expect_sentence("Install the plugin first.");
}

TEST_F(Removing, EveryOtherFailureMeansThatTheSiteKeptTheName)
{
    answer(kNamePath, R"({"message":"The database is gone."})", 500);
    expect_sentence(kSiteKept);
    answer(kNamePath, R"({"message":"Not now."})", 304);
    expect_sentence(kSiteKept);
    server.answer(kNamePath, Answer{200, "", {}, Fault::hang_up});
    expect_sentence(kSiteKept);
    server.answer(kNamePath, Answer{200, R"({"ok":true})", {}, Fault::cut_body});
    expect_sentence(kSiteKept);
}

TEST_F(Removing, WhatTheReplySaysPlaysNoPart)
{
    answer(kNamePath, R"({"ok":false,"host":"other.example.org"})", 299);
    expect_sentence(kRemoved);
}

TEST_F(Removing, TheNameIsForgottenAtTheHostThatTheSiteCallsItsOwnToo)
{
    folder.write(kKeptNames, R"({"names":[{"paymail":"alice@brasslet.test"},{"paymail":"bob@brasslet.test"},)"
                             R"({"paymail":"alice@www.brasslet.test"},{"paymail":"alice@other.test"}]})");
    settings.site = "www.brasslet.test";
    answer(kStatusPath, R"({"ok":true,"login":"names","host":"Brasslet.TEST"})");
    EXPECT_EQ(remove_sentence(settings), "Removed alice@www.brasslet.test.");
    EXPECT_THAT(folder.read(kKeptNames), testing::Not(HasSubstr("alice@brasslet.test")));
    EXPECT_THAT(folder.read(kKeptNames), testing::Not(HasSubstr("alice@www.brasslet.test")));
    EXPECT_THAT(folder.read(kKeptNames), HasSubstr("bob@brasslet.test"));
    EXPECT_THAT(folder.read(kKeptNames), HasSubstr("alice@other.test"));
}

TEST_F(Removing, ANameOfASiteOutsideAsciiIsForgottenAsItWasKept)
{
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);  // for libcurl, which on Windows takes UTF-8 anyway
    folder.write(kKeptNames, R"({"names":[{"paymail":"alice@xn--bcher-kva.test"}]})");
    settings.site = "b\xC3\xBC"
                    "cher.test";
    expect_sentence("Removed alice@b\u00fc"
                    "cher.test.");
}

TEST_F(Removing, AUserWhoTypesWwwRemovesFromASiteAtTheApex)
{
    settings.site = "www.brasslet.test";
    server.answer(kStatusPath, {redirect_to("https://brasslet.test/wp-json/brasslet/v1/status", 301),
                                {200, R"({"login":"names","host":"brasslet.test"})", {}, Fault::none}});
    server.answer(kNamePath, {redirect_to("https://brasslet.test/wp-json/brasslet/v1/name", 301),
                              {200, R"({"ok":true,"aliases":[]})", {}, Fault::none}});
    expect_sentence("Removed alice@www.brasslet.test.");
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 4U);
    expect_login_in(requests[3]);
    EXPECT_THAT(requests[3], testing::EndsWith(R"("login_user":"admin"})"));
}

TEST_F(Removing, ASiteThatSendsOnToAnotherOneIsNamed)
{
    server.answer(kNamePath, redirect_to("https://other.test/name", 308));
    expect_sentence("The site sends on to other.test. Type that site in settings.");
}

TEST_F(Removing, TheSentenceHasTheTypedHost)
{
    settings.site = "WWW.brasslet.test/blog";
    server.answer("GET /blog/wp-json/brasslet/v1/status", Answer{200, R"({"login":"names"})", {}, Fault::none});
    server.answer("DELETE /blog/wp-json/brasslet/v1/name", Answer{200, R"({"host":"brasslet.test"})", {}, Fault::none});
    EXPECT_EQ(remove_sentence(settings), "Removed alice@www.brasslet.test.");
}
