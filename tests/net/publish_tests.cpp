#include "net/publishing.h"

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
    publish_sentence(settings);
    EXPECT_THAT(server.requests()[1], HasSubstr(R"("house":"alice@corvane.example")"));
}

TEST_F(Publishing, NeedsAWallet)
{
    wallet.folder.write(kBoundWalletFile, "{}");
    settings.alias = "";
    expect_sentence(L"Connect a Vaultry wallet first.");
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Publishing, NeedsAName)
{
    settings.site = "";
    for (const std::string& alias :
         {std::string(), std::string(65, 'a'), std::string("a b"), std::string("a@b"), std::string("a/b")}) {
        settings.alias = alias;
        expect_sentence(L"Type the name. Letters, numbers, and . _ + -");
    }
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Publishing, ANameMayHave64Characters)
{
    settings.alias = std::string(64, 'a');
    settings.user = "";
    expect_sentence(L"Add the WordPress user and application password in settings.");
}

TEST_F(Publishing, NeedsASiteWithADotOverHttps)
{
    settings.user = "";
    for (const char* site : {"", "http://brasslet.test", "https://intranet", "https://brasslet.test:8443"}) {
        settings.site = site;
        expect_sentence(L"Add the site in settings. It needs https.");
    }
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Publishing, NeedsTheLogin)
{
    settings.pass.clear();
    expect_sentence(L"Add the WordPress user and application password in settings.");
    settings.pass = SecretText("abcdefgh");
    settings.user = "";
    expect_sentence(L"Add the WordPress user and application password in settings.");
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Publishing, NeedsTheCurrentPlugin)
{
    constexpr wchar_t kInstall[] = L"Press Install plugin and upload the zip over the one on the site.";
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
    expect_sentence(L"Install the plugin first.");
}

TEST_F(Publishing, AnyOtherFailureShowsTheSitesMessage)
{
    answer(kNamePath, R"({"message":"The name is taken."})", 409);
    expect_sentence(L"The name is taken.");
    answer(kNamePath, "<html>", 500);
    expect_sentence(L"The site did not take the name.");
    server.answer(kNamePath, Answer{200, "", {}, Fault::hang_up});
    expect_sentence(L"The site did not answer.");
    server.answer(kNamePath, Answer{200, R"({"ok":true})", {}, Fault::cut_body});
    expect_sentence(L"The site did not answer.");
    server.answer(kNamePath, Answer{200, std::string(1'000'001, 'a'), {}, Fault::none});
    expect_sentence(L"The site did not answer.");
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
    expect_sentence(L"Vaultry kept alice@brasslet.test. Still on the site: bob@brasslet.test, carol@brasslet.test.");
}

TEST_F(Publishing, ShowsTheVerifiersSentence)
{
    answer(kPkiPath, "{}");
    expect_sentence(L"That site is not publishing this Vaultry.");
    answer(kNamePath, R"({"host":"corvane.example"})");
    expect_sentence(L"The house paymail stays on Vaultry.");
    answer(kNamePath, R"({"host":"no host"})");
    expect_sentence(L"That name is not a paymail.");
}
