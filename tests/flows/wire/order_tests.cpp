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

TEST_F(Verifying, WhatWasPublishedWithoutAKeyOrAnAddressHasNoPaymentAddress)
{
    const std::string names = kept_names();
    for (const PublicIdentity& published :
         {PublicIdentity{}, PublicIdentity{wallet.key, ""}, PublicIdentity{"", wallet.address},
          PublicIdentity{wallet.key + "0", wallet.address}, PublicIdentity{wallet.key, std::string(25, '1')}})
        EXPECT_EQ(verify_and_keep(kName, published).message, "This Vaultry has no payment address yet.");
    EXPECT_EQ(kept_names(), names);
    EXPECT_TRUE(server.requests().empty());
    EXPECT_TRUE(stand_in().srv_queries.empty());
}

TEST_F(Verifying, AHouseNameComesBeforeAMissingAddress)
{
    EXPECT_EQ(verify_and_keep(std::string("alice@") + kHouseDomain, {}).message, "The house paymail stays on Vaultry.");
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

TEST_F(Publishing, AWalletThatGoesAfterItWasSentIsNotKept)
{
    wallet_file_changes(2, kNoWallet);
    expect_sentence("Connect a Vaultry wallet first.");
    EXPECT_EQ(server.requests().size(), 2U);  // its plugin, and the name
}

TEST_F(Publishing, AMissingLoginComesBeforeAllTraffic)
{
    settings.user = "";
    expect_sentence("Add the WordPress user and application password in settings.");
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Publishing, TheKeyIsSentInLowerCase)
{
    expect_sentence(kKept);
    EXPECT_THAT(server.requests()[1], testing::EndsWith(R"("pubkey":")" + wallet.key + "\"}"));
}
