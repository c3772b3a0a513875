// What the name guard makes of the answers of one site.
#include "flows/name_guard.h"

#include "kit/wire/guarding.h"
#include "paymail/kept_names.h"

#include <functional>

namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

std::string body_of(const std::string& request)
{
    return request.substr(request.find("\r\n\r\n") + 4);
}

std::string first_line_of(const std::string& request)
{
    return request.substr(0, request.find("\r\n"));
}

}  // namespace

TEST_F(Guarding, ANameThatPaysTheWalletIsRight)
{
    EXPECT_EQ(look_at_alice(), NameState::pays_wallet);
    publish(server, kAlice);
    answer(kPkiPath, pki_of(upper_ascii(wallet.key)));
    EXPECT_EQ(look_at_alice(), NameState::pays_wallet);
}

TEST_F(Guarding, AsksWhatPayersAskWithoutALogin)
{
    look({"Alice@Brasslet.Test"});
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 4U);
    EXPECT_EQ(first_line_of(requests[0]), std::string(kDiscoveryPath) + " HTTP/1.1");
    EXPECT_EQ(first_line_of(requests[1]), std::string(kPkiPath) + " HTTP/1.1");
    EXPECT_EQ(first_line_of(requests[2]), std::string(kPayPath) + " HTTP/1.1");
    EXPECT_EQ(first_line_of(requests[3]), std::string(kPayPath) + " HTTP/1.1");
    constexpr char kMembers[] = R"(,"purpose":"payment","senderHandle":"payname","senderName":"payname"[}])";
    EXPECT_THAT(body_of(requests[2]), MatchesRegex(R"([{]"amount":1,"dt":[0-9]{13})" + std::string(kMembers)));
    constexpr char kIso[] = "\"20[0-9][0-9]-[01][0-9]-[0-3][0-9]T[0-2][0-9]:[0-5][0-9]:[0-6][0-9][.][0-9]{3}Z\"";
    EXPECT_THAT(body_of(requests[3]), MatchesRegex(R"([{]"amount":1,"dt":)" + std::string(kIso) + kMembers));
    for (const std::string& request : requests)
        for (const char* secret : {"Authorization", "X-Brasslet-Auth", "Cookie", "login"})
            EXPECT_THAT(request, testing::Not(HasSubstr(secret)));
    EXPECT_THAT(stand_in().srv_queries, testing::ElementsAre("_bsvalias._tcp.brasslet.test"));
}

TEST_F(Guarding, AnotherKeyIsTold)
{
    answer(kPkiPath, pki_of(kOtherKey));
    EXPECT_EQ(look_at_alice(), NameState::other_key);
    answer(kPkiPath, pki_of(upper_ascii(kOtherKey)));
    EXPECT_EQ(look_at_alice(), NameState::other_key);
}

TEST_F(Guarding, AnotherAddressIsToldInEitherForm)
{
    const std::string right = script_reply(wallet.address, wallet.address);
    destinations(server, kAlice, address_reply(kOtherAddress), right);
    EXPECT_EQ(look_at_alice(), NameState::other_address);
    destinations(server, kAlice, address_reply(wallet.address), script_reply(kOtherAddress, wallet.address));
    EXPECT_EQ(look_at_alice(), NameState::other_address);
}

TEST_F(Guarding, AnotherOutputIsToldAlsoBesideTheRightAddress)
{
    destinations(server, kAlice, address_reply(wallet.address), script_reply(wallet.address, kOtherAddress));
    EXPECT_EQ(look_at_alice(), NameState::other_output);
    const std::string list = R"({"outputs":[)" + output_paying(kOtherAddress) + "]}";
    destinations(server, kAlice, list, list);
    EXPECT_EQ(look_at_alice(), NameState::other_output);
}

TEST_F(Guarding, WhatIsNotTheAnswerOfAServiceThatHasTheNameIsUnclear)
{
    const std::string host = "https://brasslet.test";
    const std::string no_pki = R"({"capabilities":{"paymentDestination":")" + host + R"(/pay/{alias}@{domain.tld}"}})";
    const std::string no_pay = R"({"capabilities":{"pki":")" + host + R"(/id/{alias}@{domain.tld}"}})";
    const std::string miss = R"({"code":"brasslet_miss","message":"No paymail.","data":{"status":404}})";
    const std::string right = address_reply(wallet.address);
    const std::string page = "<html>Briefly unavailable.</html>";
    const Answer cut{200, R"({"pubkey":")" + std::string(kOtherKey) + "\"}", {}, Fault::cut_body};
    const Answer gone{200, "", {}, Fault::hang_up};
    const auto with = [](int status, const std::string& body) { return Answer{status, body, {}, Fault::none}; };
    struct Case {
        const char* request;
        std::vector<Answer> answers;
    };
    const std::vector<Case> cases = {
        {kDiscoveryPath, {with(404, page)}},
        {kDiscoveryPath, {with(503, page)}},
        {kDiscoveryPath, {with(200, page)}},
        {kDiscoveryPath, {with(200, "{}")}},
        {kDiscoveryPath, {gone}},
        {kDiscoveryPath, {redirect_to("http://brasslet.test/")}},
        {kDiscoveryPath, {with(200, discovery_document("other.test"))}},
        {kDiscoveryPath, {with(200, no_pki)}},
        {kDiscoveryPath, {with(200, no_pay)}},
        {kPkiPath, {with(404, miss)}},
        {kPkiPath, {with(500, pki_of(kOtherKey))}},
        {kPkiPath, {with(200, page)}},
        {kPkiPath, {with(200, "{}")}},
        {kPkiPath, {with(200, R"({"pubkey":7})")}},
        {kPkiPath, {with(200, pki_of(std::string(kOtherKey).substr(2)))}},
        {kPkiPath, {with(200, pki_of("04" + std::string(kOtherKey).substr(2)))}},
        {kPkiPath, {with(200, pki_of("zz" + std::string(kOtherKey).substr(2)))}},
        {kPkiPath, {cut}},
        {kPkiPath, {gone}},
        {kPayPath, {with(404, miss)}},
        {kPayPath, {with(302, address_reply(kOtherAddress))}},
        {kPayPath, {with(429, address_reply(kOtherAddress))}},
        {kPayPath, {with(500, address_reply(kOtherAddress))}},
        {kPayPath, {with(200, page)}},
        {kPayPath, {with(200, "{}")}},
        {kPayPath, {with(200, address_reply("no address"))}},
        {kPayPath, {with(200, right), with(200, right)}},  // no script for the second form
        {kPayPath, {with(200, right), with(404, miss)}},
        {kPayPath, {gone}},
    };
    for (const auto& [request, answers] : cases) {
        answer(kDiscoveryPath, discovery_document("brasslet.test"));
        publish(server, kAlice);
        server.answer(request, answers);
        EXPECT_EQ(look_at_alice(), NameState::unclear)
            << request << " " << answers.back().status << " " << answers.back().body;
    }
    EXPECT_EQ(look({"alice@dead.brasslet.test"}).front().state, NameState::unclear);
    EXPECT_EQ(look({"alice@no-such-host.test"}).front().state, NameState::unclear);
}

TEST_F(Guarding, ASiteWhoseCertificateIsNotTrustedSaysNothing)
{
    HttpsServer untrusted({"other.test"}, Signer::nobody, "127.0.0.2");
    untrusted.answer(kDiscoveryPath, Answer{200, discovery_document("other.test"), {}, Fault::none});
    untrusted.answer("GET /id/alice@other.test", Answer{200, pki_of(kOtherKey), {}, Fault::none});
    EXPECT_EQ(look({"alice@other.test"}).front().state, NameState::unclear);
    EXPECT_TRUE(untrusted.requests().empty());
}

TEST_F(Guarding, SomebodyElseIsToldAlsoWhenOtherQuestionsHaveNoAnswer)
{
    answer(kPkiPath, "", 500);
    destinations(server, kAlice, address_reply(kOtherAddress), "{}");
    EXPECT_EQ(look_at_alice(), NameState::other_address);
    destinations(server, kAlice, "{}", script_reply(wallet.address, kOtherAddress));
    EXPECT_EQ(look_at_alice(), NameState::other_output);
}

TEST_F(Guarding, TheHostOfTheSrvRecordAnswersAsForAPayer)
{
    stand_in().srv_records = {{kDnsTypeSrv, "pay.brasslet.test", 443, 10}};
    answer(kDiscoveryPath, discovery_document("pay.brasslet.test"));
    EXPECT_EQ(look_at_alice(), NameState::pays_wallet);
    answer(kPkiPath, pki_of(kOtherKey));
    EXPECT_EQ(look_at_alice(), NameState::other_key);
    for (const std::string& request : server.requests())
        EXPECT_THAT(request, HasSubstr("\r\nHost: pay.brasslet.test\r\n"));
}

TEST_F(Guarding, TheNamesAreThoseOfOneLoadOfTheWallet)
{
    ASSERT_TRUE(keep_payname({kAlice, wallet.key, wallet.address}));
    ASSERT_TRUE(keep_payname({"bob@brasslet.test", wallet.key, kOtherAddress}));
    int loads = 0;
    stand_in().files.on_use = [&loads](const std::string& path) { loads += path.ends_with(kBoundWalletFile) ? 1 : 0; };
    const NamesOfWallet guarded = names_to_guard();
    EXPECT_EQ(loads, 1);
    EXPECT_EQ(guarded.wallet, (PublicIdentity{wallet.key, wallet.address}));
    EXPECT_EQ(guarded.paymails, std::vector<std::string>{kAlice});
    stand_in().files.on_use = nullptr;
}
