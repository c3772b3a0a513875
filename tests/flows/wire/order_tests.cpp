// Which sentence comes first when several things are wrong, and a wallet that changes while a flow runs.
#include "kit/wire/libcurl_seams.h"
#include "kit/wire/publishing.h"
#include "kit/wire/verifying.h"

#include "build_values.h"

namespace {

constexpr char kNoWallet[] = "{}";

}  // namespace

TEST_F(Verifying, AMissingWalletComesBeforeABadName)
{
    wallet.folder.write(kBoundWalletFile, kNoWallet);
    expect_refused("Connect a Vaultry wallet first.", "no paymail");
}

TEST_F(Verifying, AWalletThatGoesMeanwhileHasNoPaymentAddress)
{
    wallet_file_changes(2, kNoWallet);
    expect_refused("This Vaultry has no payment address yet.");
    EXPECT_TRUE(server.requests().empty());
    EXPECT_TRUE(stand_in().srv_queries.empty());
}

TEST_F(Verifying, AHouseNameComesBeforeAMissingAddress)
{
    wallet_file_changes(2, kNoWallet);
    expect_refused("The house paymail stays on Vaultry.", std::string("alice@") + kHouseDomain);
}

TEST_F(Verifying, AnotherKeyComesBeforeAMissingPaymentDestination)
{
    answer(kDiscoveryPath, R"({"capabilities":{"pki":"https://brasslet.test/id/{alias}@{domain.tld}"}})");
    answer(kPkiPath, "{}");
    expect_refused("That site is not publishing this Vaultry.");
}

TEST_F(Verifying, TheDestinationHasTwelveSeconds)
{
    expect_kept();
    EXPECT_EQ(options_set().at(CURLOPT_TIMEOUT_MS), 12'000);
}

TEST_F(Publishing, AWalletThatGoesMeanwhileHasNoPaymentAddress)
{
    answer(kStatusPath, "", 404);
    wallet_file_changes(2, kNoWallet);
    expect_sentence("This Vaultry has no payment address yet.");
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Publishing, AMissingLoginComesBeforeAMissingAddress)
{
    settings.user = "";
    wallet_file_changes(2, kNoWallet);
    expect_sentence("Add the WordPress user and application password in settings.");
}

TEST_F(Publishing, TheKeyIsSentInLowerCase)
{
    wallet_file_changes(2, R"({"pub":")" + upper_ascii(wallet.key) + "\"}");
    expect_sentence(kKept);
    EXPECT_THAT(server.requests()[1], testing::EndsWith(R"("pubkey":")" + wallet.key + "\"}"));
}
