#include "kit/wire/verifying.h"

#include "paymail/kept_names.h"
#include "text/clock.h"
#include "text/json.h"

#include "build_values.h"

namespace {

using testing::HasSubstr;

constexpr char kOtherAddress[] = "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH";

}  // namespace

TEST_F(Verifying, KeepsANameThatResolvesToThisWallet)
{
    expect_kept();
    EXPECT_EQ(load_paynames(),
              nlohmann::json::array({{{"paymail", kName}, {"pubkey", wallet.key}, {"address", wallet.address}}}));
}

TEST_F(Verifying, AsksForTheDestinationOfOneSatoshi)
{
    const std::int64_t before = milliseconds_since_epoch();
    expect_kept();
    const std::string request = server.requests().back();
    const auto body = parse_json(request.substr(request.find("\r\n\r\n") + 4));
    const std::int64_t when = body["dt"];
    EXPECT_GE(when, before);
    EXPECT_LE(when, milliseconds_since_epoch());
    EXPECT_EQ(compact_json(body), R"({"amount":1,"dt":)" + std::to_string(when) +
                                      R"(,"purpose":"payment","senderHandle":"payname","senderName":"payname"})");
    EXPECT_THAT(request, testing::EndsWith("\r\n\r\n" + compact_json(body)));
}

TEST_F(Verifying, PutsItsQuestionsOnOneConnection)
{
    server.keep({100, true});
    expect_kept();
    EXPECT_EQ(server.requests().size(), 3U);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(Verifying, ANameInCapitalsIsKeptInLowerCase)
{
    expect_kept("ALICE@Brasslet.TEST");
}

TEST_F(Verifying, WithoutAWalletThereIsNothingToVerify)
{
    wallet.folder.write(kBoundWalletFile, "{}");
    expect_refused("Connect a Vaultry wallet first.");
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Verifying, ANameThatIsNoPaymailIsRefused)
{
    for (const char* name : {"", "alice", "@brasslet.test", "alice@", "alice@brasslet", "a@b@brasslet.test",
                             "alice@brasslet.test@", "al ice@brasslet.test", "alice@brasslet..test"})
        expect_refused("That name is not a paymail.", name);
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Verifying, AHouseNameIsRefusedBeforeAnyTraffic)
{
    expect_refused("The house paymail stays on Vaultry.", std::string("alice@") + kHouseDomain);
    expect_refused("The house paymail stays on Vaultry.", "Alice@" + upper_ascii(kHouseDomain));
    EXPECT_TRUE(server.requests().empty());
    EXPECT_TRUE(stand_in().srv_queries.empty());
}

TEST_F(Verifying, TheSrvTargetServesTheDomain)
{
    srv_target("Pay.Brasslet.Test.");
    answer(kDiscoveryPath, discovery_document("pay.brasslet.test"));
    expect_kept();
    for (const std::string& request : server.requests())
        EXPECT_THAT(request, HasSubstr("\r\nHost: pay.brasslet.test\r\n"));
    EXPECT_THAT(stand_in().srv_queries, testing::ElementsAre("_bsvalias._tcp.brasslet.test"));
}

TEST_F(Verifying, ADeadSrvTargetIsReplacedByTheDomain)
{
    srv_target("dead.brasslet.test");
    expect_kept();
}

TEST_F(Verifying, WhenTheDomainAnswersInsteadTheSrvTargetsCapabilitiesAreNoLongerTaken)
{
    srv_target("pay.brasslet.test");
    server.answer(kDiscoveryPath,
                  {{404, "", {}, Fault::none}, {200, discovery_document("pay.brasslet.test"), {}, Fault::none}});
    expect_refused("The site did not publish the key.");
    EXPECT_EQ(server.requests().size(), 2U);
}

TEST_F(Verifying, ASiteWithoutADiscoveryDocumentDoesNotAnswer)
{
    answer(kDiscoveryPath, "{}", 404);
    expect_refused("The site did not answer the paymail address.");
    EXPECT_EQ(server.requests().size(), 1U);
    srv_target("pay.brasslet.test");
    expect_refused("The site did not answer the paymail address.");
    EXPECT_EQ(server.requests().size(), 3U);
    expect_refused("The site did not answer the paymail address.", "alice@dead.brasslet.test");
}

TEST_F(Verifying, ADocumentWithoutAUsablePkiPublishesNoKey)
{
    for (const std::string& document :
         {std::string("<html>"), std::string("[]"), std::string("{}"), std::string(R"({"capabilities":[]})"),
          std::string(R"({"capabilities":{"pki":7}})"), std::string("{\"capabilities\":{\"pki\":\"\xff\"}}"),
          std::string(10'000, '['), discovery_document("evil.example"), discovery_document("brasslet.test:443"),
          discovery_document("user@brasslet.test")}) {
        answer(kDiscoveryPath, document);
        expect_refused("The site did not publish the key.");
    }
    EXPECT_EQ(server.requests().size(), 10U);
}

TEST_F(Verifying, APkiThatIsNotThereIsNoKey)
{
    answer(kPkiPath, "{}", 500);
    expect_refused("The site did not publish the key.");
}

TEST_F(Verifying, AnotherKeyIsAnotherVaultry)
{
    for (const std::string& reply :
         {std::string("<html>"), std::string(R"({"pubkey":7})"), std::string("{}"), std::string("[]"),
          R"({"pubkey":")" + wallet.key + "0\"}", R"({"pubkey":" )" + wallet.key + "\"}",
          R"({"pubkey":")" + std::string(66, '0') + "\"}", std::string(10'000, '[')}) {
        answer(kPkiPath, reply);
        expect_refused("That site is not publishing this Vaultry.");
    }
}

TEST_F(Verifying, AKeyInUpperCasePasses)
{
    answer(kPkiPath, R"({"pubkey":")" + upper_ascii(wallet.key) + "\"}");
    expect_kept();
}

TEST_F(Verifying, ADocumentWithoutAPaymentDestinationPublishesNoAddress)
{
    answer(kDiscoveryPath, R"({"capabilities":{"pki":"https://brasslet.test/id/{alias}@{domain.tld}"}})");
    expect_refused("The site did not publish a payment address.");
}

TEST_F(Verifying, ADestinationThatIsNotThereIsNoAddress)
{
    for (const int status : {302, 404, 429, 500}) {
        answer(kPayPath, "{}", status);
        expect_refused("The site did not publish a payment address.");
    }
    server.answer(kPayPath, Answer{200, R"({"outputs":[)" + output_paying(wallet.address) + "]}", {}, Fault::cut_body});
    expect_refused("The site did not publish a payment address.");
    EXPECT_EQ(server.requests().size(), 15U);
}

TEST_F(Verifying, AnotherDestinationIsADifferentAddress)
{
    const std::string right = output_paying(wallet.address);
    for (const std::string& reply :
         {R"({"outputs":[)" + output_paying(kOtherAddress) + "]}", R"({"outputs":[)" + right + "," + right + "]}",
          R"({"address":")" + std::string(kOtherAddress) + "\"}", std::string(R"({"outputs":[]})"),
          std::string("<html>"), std::string(), std::string(10'000, '[')}) {
        answer(kPayPath, reply);
        expect_refused("That site is paying a different address.");
    }
}

TEST_F(Verifying, AScriptAndAnAddressThatDisagreeAreADifferentAddress)
{
    const auto reply = [](const std::string& script_pays, const std::string& address) {
        const std::string script = text_member(parse_json(output_paying(script_pays)), "script");
        return compact_json({{"address", address}, {"output", script}});
    };
    for (const std::string& body : {reply(wallet.address, kOtherAddress), reply(kOtherAddress, wallet.address),
                                    reply(wallet.address, "no address")}) {
        answer(kPayPath, body);
        expect_refused("That site is paying a different address.");
    }
    answer(kPayPath, reply(wallet.address, wallet.address));
    expect_kept();
}
