#include "wallet_bridge/loaded_wallet.h"

#include "kit/wallet_files.h"
#include "platform/files.h"
#include "text/json.h"
#include "wallet_bridge/binding.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

const char* const kWallet = "wallets/1/wallet.json";
const char* const kHouse = "corvane_paymail.json";

std::string identity_of_test_phrase()
{
    WalletKeys keys;
    return derive_wallet_keys(SecretText(kPhrase), 0, 0, keys) ? keys.identity_key : "";
}

}  // namespace

TEST(LoadedWallet, TheBoundWalletIsLoaded)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    EXPECT_EQ(wallet_path(), folder.data() + "/wallets/1/wallet.json");
    ASSERT_TRUE(load_wallet());
    EXPECT_TRUE(loaded_wallet()->has_phrase);
    EXPECT_EQ(loaded_wallet()->paymail, "ann");
    EXPECT_EQ(loaded_wallet()->keys.identity_key, identity_of_test_phrase());
}

TEST(LoadedWallet, ALoadOfTheSameWalletReadsTheFileButDerivesNothing)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    ASSERT_TRUE(load_wallet());
    loaded_wallet()->keys.address = "derived before";
    folder.write(kWallet, phrase_wallet({{"paymail", "bob"}}).dump());
    ASSERT_TRUE(load_wallet());
    EXPECT_EQ(loaded_wallet()->paymail, "bob");
    EXPECT_EQ(loaded_wallet()->keys.address, "derived before");
}

TEST(LoadedWallet, NothingThatWasDerivedOutlivesAForgottenWallet)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    const std::string good = folder.read(kWallet);
    ASSERT_TRUE(load_wallet());
    const std::string address = loaded_wallet()->keys.address;
    loaded_wallet()->keys.address = "derived before";
    forget_wallet();
    ASSERT_TRUE(load_wallet());
    EXPECT_EQ(loaded_wallet()->keys.address, address);

    loaded_wallet()->keys.address = "derived before";
    folder.write(kWallet, "{");
    ASSERT_FALSE(load_wallet());
    folder.write(kWallet, good);
    ASSERT_TRUE(load_wallet());
    EXPECT_EQ(loaded_wallet()->keys.address, address);
}

TEST(LoadedWallet, WithNoWalletBoundTheOlderFileIsLoaded)
{
    const TestFolder folder;
    bind_at_startup("x", "Brasslet");
    folder.write("corvane_vaultry.json", phrase_wallet().dump());
    EXPECT_EQ(wallet_path(), folder.data() + "/corvane_vaultry.json");
    EXPECT_TRUE(load_wallet());
}

TEST(LoadedWallet, EveryFailedLoadForgetsTheWalletOfBefore)
{
    const TestFolder folder;
    const std::string good = phrase_wallet().dump();
    bind_to_wallet(folder, phrase_wallet());
    for (const std::string& bad :
         {std::string(), std::string("{"), std::string("[]"), std::string("{}"), std::string(R"({"lock":"QX-LOCK1"})"),
          phrase_wallet({{"mnemonic", "abandon about"}}).dump(), std::string(R"({"priv":"00"})"),
          std::string(100'000, '[')}) {
        folder.write(kWallet, good);
        ASSERT_TRUE(load_wallet());
        folder.write(kWallet, bad);
        EXPECT_FALSE(load_wallet()) << bad.substr(0, 40);
        EXPECT_EQ(loaded_wallet(), nullptr) << bad.substr(0, 40);
    }
    folder.write(kWallet, good);
    ASSERT_TRUE(load_wallet());
    ASSERT_TRUE(remove_file(folder.data() + "/" + kWallet));
    EXPECT_FALSE(load_wallet());
    EXPECT_EQ(loaded_wallet(), nullptr);
}

TEST(LoadedWallet, AnIdThatIsNoFileNameLoadsNothing)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    for (const std::string& id : {std::string(300, '1'), std::string("1\0x", 3), std::string("\n"), std::string("*")}) {
        bind_wallet(id);
        EXPECT_FALSE(load_wallet()) << id;
        EXPECT_FALSE(is_wallet_locked()) << id;
    }
}

TEST(LoadedWallet, ASealFileLocksTheWalletAndTheLoadForgetsIt)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet());
    EXPECT_FALSE(is_wallet_locked());
    folder.write("wallets/1/wallet.json.seal", "");
    EXPECT_TRUE(is_wallet_locked());
    EXPECT_FALSE(load_wallet());
    EXPECT_EQ(loaded_wallet(), nullptr);
}

TEST(LoadedWallet, ALockRecordInItsPlaceLocksTheWallet)
{
    const TestFolder folder;
    bind_to_wallet(folder, {{"lock", "QX-LOCK1"}});
    EXPECT_TRUE(is_wallet_locked());
    folder.write(kWallet, R"({"lock":"QX-LOCK2"})");
    EXPECT_FALSE(is_wallet_locked());
    folder.write(kWallet, R"({"lock":"QX-LOCK1")");
    EXPECT_FALSE(is_wallet_locked());
    ASSERT_TRUE(remove_file(folder.data() + "/" + kWallet));
    EXPECT_FALSE(is_wallet_locked());
}

TEST(LoadedWallet, ForgettingEmptiesIt)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    folder.write("ord_snap/1_spent.json", R"({"outpoints":["a_0"]})");
    ASSERT_TRUE(load_wallet());
    EXPECT_EQ(spent_outpoints(), std::set<std::string>{"a_0"});
    forget_wallet();
    EXPECT_EQ(loaded_wallet(), nullptr);
    EXPECT_TRUE(spent_outpoints().empty());
    EXPECT_FALSE(save_wallet());
}

TEST(LoadedWallet, WithoutABoundWalletTheSpentItemsAreFoundByTheIdentity)
{
    const TestFolder folder;
    bind_at_startup("x", "Brasslet");
    folder.write("corvane_vaultry.json", phrase_wallet().dump());
    folder.write("ord_snap/" + identity_of_test_phrase() + "_spent.json", R"({"outpoints":["b_0"]})");
    ASSERT_TRUE(load_wallet());
    EXPECT_EQ(spent_outpoints(), std::set<std::string>{"b_0"});
}

TEST(LoadedWallet, TheOrdinalsAddressIsOfTheCounterAndGoesToTheHouseRegistry)
{
    const TestFolder folder;
    const std::string key = identity_of_test_phrase();
    folder.write(kHouse, nlohmann::json{{"names", {{"ann", {{"pubkey", key}}}}}}.dump());
    bind_to_wallet(folder, phrase_wallet({{"recv", {0, 0, 0, 0, 0, 7}}}));
    ASSERT_TRUE(load_wallet());
    WalletKeys keys;
    ASSERT_TRUE(derive_wallet_keys(SecretText(kPhrase), 0, 7, keys));
    EXPECT_EQ(parse_json(folder.read(kHouse))["names"]["ann"]["ordAddress"], keys.ordinals_address);
}

TEST(LoadedWallet, SavingKeepsWhatTheFileHeldBesides)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"theme", "dark"}, {"ord_owned", {{{"origin", "a_0"}, {"created", true}}}}}));
    ASSERT_TRUE(load_wallet());
    loaded_wallet()->paymail = "ann";
    EXPECT_TRUE(save_wallet());
    const auto saved = parse_json(folder.read(kWallet));
    EXPECT_EQ(saved["paymail"], "ann");
    EXPECT_EQ(saved["theme"], "dark");
    EXPECT_EQ(saved["mnemonic"], kPhrase);
    EXPECT_EQ(saved["ord_owned"][0]["created"], true);
    EXPECT_EQ(folder.read(kWallet), pretty_json(saved));
    loaded_wallet()->paymail = "bob";
    EXPECT_TRUE(save_wallet());
    EXPECT_EQ(parse_json(folder.read(kWallet))["paymail"], "bob");
}

TEST(LoadedWallet, SavingDoesNotUndoWhatAnotherProgramWroteMeanwhile)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet());
    const std::string newer = phrase_wallet({{"recv", {0, 5, 0, 0, 0, 0}}}).dump();
    folder.write(kWallet, newer);
    loaded_wallet()->paymail = "ann";
    EXPECT_FALSE(save_wallet());
    EXPECT_EQ(folder.read(kWallet), newer);
}

TEST(LoadedWallet, SavingMakesNoFileThatIsGone)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet());
    const std::string wallets = folder.path() + "/Corvane/wallets";
    ASSERT_GT(std::filesystem::remove_all(std::filesystem::path(std::u8string(wallets.begin(), wallets.end()))), 0U);
    EXPECT_FALSE(save_wallet());
    EXPECT_FALSE(folder.has("wallets"));
}
