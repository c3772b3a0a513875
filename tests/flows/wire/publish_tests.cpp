#include "kit/wire/publishing.h"
#include "text/json.h"

namespace {

using testing::HasSubstr;

}  // namespace

TEST_F(Publishing, ANameThatTheWorldResolvesToThisWalletIsKept)
{
    expect_sentence(kKept);
}

TEST_F(Publishing, AsksForThePluginWithoutALoginAndThenSendsTheNameWithOne)
{
    expect_sentence(kKept);
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 5U);
    expect_status_question(requests[0]);
    EXPECT_THAT(requests[1], testing::StartsWith(kNamePath));
    expect_login_in(requests[1]);
    EXPECT_THAT(
        requests[1],
        testing::EndsWith("\r\n\r\n{\"address\":\"" + wallet.address +
                          R"(","alias":"alice","house":"","login_pass":"abcdefgh","login_user":"admin","pubkey":")" +
                          wallet.key + "\"}"));
}

TEST_F(Publishing, SendsTheHousePaymailOfTheWallet)
{
    wallet.folder.write(kBoundWalletFile, R"({"version":2,"mnemonic":"abandon abandon abandon abandon abandon abandon )"
                                          R"(abandon abandon abandon abandon abandon about","paymail":"alice"})");
    EXPECT_EQ(publish_sentence(settings), kKept);
    EXPECT_THAT(server.requests()[1], HasSubstr(R"("house":"alice@corvane.example")"));
}

TEST_F(Publishing, NeedsAWallet)
{
    wallet.folder.write(kBoundWalletFile, "{}");
    settings.alias = "";
    expect_sentence("Connect a Vaultry wallet first.");
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Publishing, NeedsAName)
{
    settings.site = "";
    for (const std::string& alias :
         {std::string(), std::string(65, 'a'), std::string("a b"), std::string("a@b"), std::string("a/b")}) {
        settings.alias = alias;
        expect_sentence("Type the name. Letters, numbers, and . _ + -");
    }
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Publishing, ANameMayHave64Characters)
{
    settings.alias = std::string(64, 'a');
    settings.user = "";
    expect_sentence("Add the WordPress user and application password in settings.");
}

TEST_F(Publishing, NeedsASiteWithADotOverHttps)
{
    settings.user = "";
    for (const char* site : {"", "http://brasslet.test", "https://intranet", "https://brasslet.test:8443"}) {
        settings.site = site;
        expect_sentence("Add the site in settings. It needs https.");
    }
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Publishing, NeedsTheLogin)
{
    for (const char* text : {"", "bG9ja2Vk"}) {  // none, and one that does not open here
        settings.pass = StoredPassword::of_file(text);
        expect_sentence("Add the WordPress user and application password in settings.");
    }
    settings.pass = StoredPassword(SecretText("abcdefgh"));
    settings.user = "";
    expect_sentence("Add the WordPress user and application password in settings.");
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Publishing, NeedsTheCurrentPlugin)
{
    constexpr char kInstall[] = "Press Install plugin and upload the zip over the one on the site.";
    answer(kStatusPath, R"({"ok":true})");
    expect_sentence(kInstall);
    answer(kStatusPath, kCurrentPlugin, 500);
    expect_sentence(kInstall);
    answer(kStatusPath, "<html>", 404);
    expect_sentence(kInstall);
    server.answer(kStatusPath, Answer{200, kCurrentPlugin, {}, Fault::cut_body});
    expect_sentence(kInstall);
    settings.site = "dead.brasslet.test";
    expect_sentence(kInstall);
    EXPECT_EQ(server.requests().size(), 4U);
}

TEST_F(Publishing, SaysWhatWordPressRefused)
{
    for (const Refusal& refusal : refused_logins()) {
        server.answer(kNamePath, refusal.reply);
        expect_sentence(refusal.sentence);
    }
}

TEST_F(Publishing, ThePluginMayHaveGone)
{
    answer(kNamePath, "", 404);
    expect_sentence("Install the plugin first.");
}

TEST_F(Publishing, AnyOtherFailureShowsTheSitesMessage)
{
    answer(kNamePath, R"({"message":"The name is taken."})", 409);
    expect_sentence("The name is taken.");
    answer(kNamePath, "<html>", 500);
    expect_sentence("The site did not take the name.");
    server.answer(kNamePath, Answer{200, "", {}, Fault::hang_up});
    expect_sentence("The site did not answer.");
    server.answer(kNamePath, Answer{200, R"({"ok":true})", {}, Fault::cut_body});
    expect_sentence("The site did not answer.");
    server.answer(kNamePath, Answer{200, std::string(1'000'001, 'a'), {}, Fault::none});
    expect_sentence("The site did not answer.");
}

TEST_F(Publishing, ASuccessThatIsNoJsonKeepsTheTypedHost)
{
    answer(kNamePath, "<html>taken</html>");
    expect_sentence(kKept);
}

TEST_F(Publishing, TheSitesOwnHostIsTakenInLowerCase)
{
    settings.site = "www.brasslet.test";
    answer(kNamePath, R"({"host":"Brasslet.TEST"})");
    expect_sentence(kKept);
}

TEST_F(Publishing, NamesWhatElseIsOnTheSite)
{
    answer(kNamePath, R"({"host":"brasslet.test","aliases":["alice",7,"bob","carol"]})");
    expect_sentence("Vaultry kept alice@brasslet.test. Still on the site: bob@brasslet.test, carol@brasslet.test.");
}

TEST_F(Publishing, ShowsTheVerifiersSentence)
{
    answer(kPkiPath, "{}");
    expect_sentence("That site is not publishing this Vaultry.");
    answer(kNamePath, R"({"host":"corvane.example"})");
    expect_sentence("The house paymail stays on Vaultry.");
    answer(kNamePath, R"({"host":"no host"})");
    expect_sentence("That name is not a paymail.");
}

TEST_F(Publishing, AUserWhoTypesWwwPublishesOnASiteAtTheApex)
{
    settings.site = "www.brasslet.test";
    server.answer(kStatusPath, {redirect_to("https://brasslet.test/wp-json/brasslet/v1/status", 301),
                                {200, kCurrentPlugin, {}, Fault::none}});
    server.answer(kNamePath, {redirect_to("https://brasslet.test/wp-json/brasslet/v1/name", 301),
                              {200, R"({"ok":true,"host":"brasslet.test","aliases":["alice"]})", {}, Fault::none}});
    expect_sentence(kKept);
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 7U);
    expect_login_in(requests[3]);
    EXPECT_EQ(requests[3].substr(requests[3].find("\r\n\r\n")), requests[2].substr(requests[2].find("\r\n\r\n")));
}

TEST_F(Publishing, ASiteThatSendsOnToAnotherOneIsNamed)
{
    server.answer(kNamePath, {302, R"({"message":"Moved."})", {"Location: https://other.test/name"}, Fault::none});
    expect_sentence("The site sends on to other.test. Type that site in settings.");
    server.answer(kNamePath, {301, "", {"Location: http://brasslet.test/name"}, Fault::none});
    expect_sentence("The site sends on to brasslet.test, away from https on port 443. Ask your host to keep it there.");
}

TEST_F(Publishing, ARedirectThatLeadsNowhereIsNoSuccess)
{
    server.answer(kNamePath, {302, "", {}, Fault::none});
    expect_sentence("The site did not take the name.");
    server.answer(kNamePath, redirect_to("https://ex ample/"));
    expect_sentence("The site did not take the name.");
}

TEST_F(Publishing, ASiteOutsideAsciiIsKeptAndAskedForByItsAsciiName)
{
    answer(kNamePath, R"({"ok":true,"host":"B\u00fccher.test"})");
    answer(kDiscoveryPath, discovery_document("xn--bcher-kva.test"));
    answer("GET /id/alice@xn--bcher-kva.test", compact_json({{"pubkey", wallet.key}}));
    answer("POST /pay/alice@xn--bcher-kva.test", R"({"address":")" + wallet.address + R"("})");
    expect_sentence("Vaultry kept alice@xn--bcher-kva.test.");
    EXPECT_THAT(stand_in().srv_queries, testing::ElementsAre("_bsvalias._tcp.xn--bcher-kva.test"));
    EXPECT_THAT(kept_names(), HasSubstr(R"("alice@xn--bcher-kva.test")"));
}

TEST_F(Publishing, WhatTheSiteSaysIsOneLineWithoutMarksOfDirection)
{
    answer(kNamePath, R"({"message":"Full.\n\u202eDo\u0007 this."})", 500);
    expect_sentence("Full. Do this.");
    answer(kNamePath, R"({"message":"No\u200f\tway."})", 403);
    expect_sentence("No way.");
    answer(kNamePath, R"({"message":"\u202e\n"})", 500);
    expect_sentence("The site did not take the name.");
    answer(kNamePath, R"({"message":"\u202e\n"})", 401);
    expect_sentence("WordPress refused that application password.");
}

TEST_F(Publishing, TellsWhichPaynameIsKeptAndOnlyThen)
{
    std::vector<std::string> kept;
    const auto note = [&kept](const std::string& payname) { kept.push_back(payname); };
    settings.site = "www.brasslet.test";
    EXPECT_EQ(publish_sentence(settings, note), kKept);
    EXPECT_THAT(kept, testing::ElementsAre("alice@brasslet.test"));
    answer(kPkiPath, "{}");
    EXPECT_EQ(publish_sentence(settings, note), "That site is not publishing this Vaultry.");
    EXPECT_EQ(kept.size(), 1U);
}
