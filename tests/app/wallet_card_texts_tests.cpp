#include "app/wallet_card_texts.h"

#include "build_values.h"
#include "kit/bound_wallet.h"
#include "kit/wallet_files.h"
#include "wallet_bridge/binding.h"

#include <gtest/gtest.h>

namespace {

const std::string kHouse = std::string("sofia@") + kHouseDomain;

}  // namespace

TEST(WalletCardTexts, OfNoWalletTheyAskToConnect)
{
    const TestFolder folder;
    bind_at_startup("x", "Brasslet");
    const WalletCardTexts texts = wallet_card_texts();
    EXPECT_EQ(texts.house_paymail, "Connect Vaultry");
    EXPECT_EQ(texts.payment_address, "Connect Vaultry");
    EXPECT_EQ(texts.kept_names, "");
}

TEST(WalletCardTexts, AWalletWithoutAHousePaymailSaysSo)
{
    const BoundWallet wallet;
    const WalletCardTexts texts = wallet_card_texts();
    EXPECT_EQ(texts.house_paymail, "No house paymail yet");
    EXPECT_EQ(texts.payment_address, wallet.address);
    EXPECT_EQ(texts.kept_names, "");
}

TEST(WalletCardTexts, AWalletWithNamesShowsThemAll)
{
    const BoundWallet wallet;
    wallet.folder.write(kBoundWalletFile, phrase_wallet({{"paymail", "sofia"}}).dump());
    nlohmann::json names;
    for (const char* name : {"ann@x.org", "bob@y.org"})
        names.push_back({{"paymail", name}, {"pubkey", wallet.key}, {"address", wallet.address}});
    wallet.folder.write("payname/payname.json", names.dump());
    const WalletCardTexts texts = wallet_card_texts();
    EXPECT_EQ(texts.house_paymail, kHouse);
    EXPECT_EQ(texts.payment_address, wallet.address);
    EXPECT_EQ(texts.kept_names, "Vaultry kept ann@x.org, bob@y.org");
}
