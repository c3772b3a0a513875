#include "app/card_texts.h"

#include "build_values.h"
#include "kit/bound_wallet.h"
#include "kit/wallet_files.h"
#include "paymail/kept_names.h"
#include "wallet_bridge/binding.h"

#include <gtest/gtest.h>

namespace {

const std::string kHouse = std::string("sofia@") + kHouseDomain;

constexpr char kSite[] = "https://Example.org/blog/";
constexpr char kNothingYet[] = "name@your-site";

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

TEST(WalletCardTexts, NamesThatPaySomebodyElseComeFirstWithTheirMark)
{
    const BoundWallet wallet;
    for (const char* name : {"ann@x.org", "bob@y.org", "zoe@x.org"})
        ASSERT_TRUE(keep_payname({name, wallet.key, wallet.address}));
    EXPECT_EQ(wallet_card_texts({"bob@y.org", "gone@x.org"}).kept_names,
              "Vaultry kept bob@y.org (pays somebody else), ann@x.org, zoe@x.org");
    EXPECT_EQ(wallet_card_texts({"zoe@x.org", "ann@x.org"}).kept_names,
              "Vaultry kept ann@x.org (pays somebody else), zoe@x.org (pays somebody else), bob@y.org");
}

TEST(MarkedNames, GetTheirMarkByAnyFindingOfSomebodyElseAndLoseItOnlyByARightOne)
{
    MarkedNames marked;
    mark_names({{"ann@x.org", NameState::other_key},
                {"bob@x.org", NameState::other_address},
                {"zoe@x.org", NameState::other_output},
                {"sue@x.org", NameState::unclear},
                {"kim@x.org", NameState::pays_wallet}},
               marked);
    EXPECT_EQ(marked, (MarkedNames{"ann@x.org", "bob@x.org", "zoe@x.org"}));
    mark_names({{"ann@x.org", NameState::pays_wallet}, {"bob@x.org", NameState::unclear}}, marked);
    EXPECT_EQ(marked, (MarkedNames{"bob@x.org", "zoe@x.org"}));
}

TEST(NamePreview, ShowsTheNameInLowerCaseOnTheHostOfTheSite)
{
    EXPECT_EQ(name_preview("Ann", kSite), "ann@example.org");
    EXPECT_EQ(name_preview("a.b_c+d-9", "example.org"), "a.b_c+d-9@example.org");
}

TEST(NamePreview, TakesNamesOf1To64Characters)
{
    EXPECT_EQ(name_preview("a", kSite), "a@example.org");
    EXPECT_EQ(name_preview(std::string(64, 'a'), kSite), std::string(64, 'a') + "@example.org");
    EXPECT_EQ(name_preview("", kSite), kNothingYet);
    EXPECT_EQ(name_preview(std::string(65, 'a'), kSite), kNothingYet);
}

TEST(NamePreview, RefusesWhatNoNameMayHold)
{
    for (const char* name : {"an n", "ann@", "a/b", "\xC3\xA4nn", "a%sb"})
        EXPECT_EQ(name_preview(name, kSite), kNothingYet) << name;
}

TEST(NamePreview, NeedsASiteWithADotInItsHost)
{
    for (const char* site : {"", "https://intranet", "http://example.org", "https://"})
        EXPECT_EQ(name_preview("ann", site), kNothingYet) << site;
}

TEST(NameForField, IsTheFirstPublishedName)
{
    EXPECT_EQ(name_for_field("bob", "ann@example.org, zoe@example.org"), "ann");
    EXPECT_EQ(name_for_field("", "ann@example.org"), "ann");
}

TEST(NameForField, IsTheSavedNameWhenNoneIsPublished)
{
    EXPECT_EQ(name_for_field("bob", ""), "bob");
    EXPECT_EQ(name_for_field("bob", "no at sign"), "bob");
    EXPECT_EQ(name_for_field("", ""), "");
}
