#include "wallet_bridge/loaded_wallet.h"

#include "kit/test_folder.h"
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
    return derive_wallet_keys(SecretText(kPhrase), 0, 0).value().identity_key;
}

}  // namespace

TEST(LoadedWallet, TheBoundWalletIsLoaded)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    EXPECT_EQ(wallet_path(), folder.data() + "/wallets/1/wallet.json");
    ASSERT_TRUE(load_wallet(held));
    EXPECT_TRUE(held->wallet->has_phrase);
    EXPECT_EQ(held->wallet->paymail, "ann");
    EXPECT_EQ(held->wallet->keys.identity_key, identity_of_test_phrase());
}

TEST(LoadedWallet, ALoadOfTheSameWalletReadsTheFileButDerivesNothing)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    ASSERT_TRUE(load_wallet(held));
    held->wallet->keys.address = "derived before";
    folder.write(kWallet, phrase_wallet({{"paymail", "bob"}}).dump());
    ASSERT_TRUE(load_wallet(held));
    EXPECT_EQ(held->wallet->paymail, "bob");
    EXPECT_EQ(held->wallet->keys.address, "derived before");
}

TEST(LoadedWallet, NothingThatWasDerivedOutlivesAForgottenWallet)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    const std::string good = folder.read(kWallet);
    ASSERT_TRUE(load_wallet(held));
    const std::string address = held->wallet->keys.address;
    held->wallet->keys.address = "derived before";
    forget_wallet(held);
    ASSERT_TRUE(load_wallet(held));
    EXPECT_EQ(held->wallet->keys.address, address);

    held->wallet->keys.address = "derived before";
    folder.write(kWallet, "{");
    ASSERT_FALSE(load_wallet(held));
    folder.write(kWallet, good);
    ASSERT_TRUE(load_wallet(held));
    EXPECT_EQ(held->wallet->keys.address, address);
}

TEST(LoadedWallet, WithNoWalletBoundTheOlderFileIsLoaded)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_at_startup("x", "Brasslet");
    folder.write("corvane_vaultry.json", phrase_wallet().dump());
    EXPECT_EQ(wallet_path(), folder.data() + "/corvane_vaultry.json");
    EXPECT_TRUE(load_wallet(held));
}

TEST(LoadedWallet, EveryFailedLoadForgetsTheWalletOfBefore)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    const std::string good = phrase_wallet().dump();
    bind_to_wallet(folder, phrase_wallet());
    for (const std::string& bad :
         {std::string(), std::string("{"), std::string("[]"), std::string("{}"), std::string(R"({"lock":"QX-LOCK1"})"),
          phrase_wallet({{"mnemonic", "abandon about"}}).dump(), std::string(R"({"priv":"00"})"),
          std::string(100'000, '[')}) {
        folder.write(kWallet, good);
        ASSERT_TRUE(load_wallet(held));
        folder.write(kWallet, bad);
        EXPECT_FALSE(load_wallet(held)) << bad.substr(0, 40);
        EXPECT_FALSE(held->wallet) << bad.substr(0, 40);
    }
    folder.write(kWallet, good);
    ASSERT_TRUE(load_wallet(held));
    ASSERT_TRUE(remove_file(folder.data() + "/" + kWallet));
    EXPECT_FALSE(load_wallet(held));
    EXPECT_FALSE(held->wallet);
}

TEST(LoadedWallet, AnIdThatIsNoFileNameLoadsNothing)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    for (const std::string& id : {std::string(300, '1'), std::string("1\0x", 3), std::string("\n"), std::string("*")}) {
        bind_wallet(id);
        EXPECT_FALSE(load_wallet(held)) << id;
        EXPECT_FALSE(is_wallet_locked()) << id;
    }
}

TEST(LoadedWallet, ASealFileLocksTheWalletAndTheLoadForgetsIt)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    EXPECT_FALSE(is_wallet_locked());
    folder.write("wallets/1/wallet.json.seal", "");
    EXPECT_TRUE(is_wallet_locked());
    EXPECT_FALSE(load_wallet(held));
    EXPECT_FALSE(held->wallet);
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
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    forget_wallet(held);
    EXPECT_FALSE(held->wallet);
    EXPECT_EQ(held->id + held->path, "");
    EXPECT_FALSE(save_wallet(held));
}

TEST(LoadedWallet, TheOrdinalsAddressIsOfTheCounterAndGoesToTheHouseLabelsFile)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    const std::string key = identity_of_test_phrase();
    folder.write(kHouse, nlohmann::json{{"names", {{"ann", {{"pubkey", key}}}}}}.dump());
    bind_to_wallet(folder, phrase_wallet({{"recv", {0, 0, 0, 0, 0, 7}}}));
    ASSERT_TRUE(load_wallet(held));
    const WalletKeys keys = derive_wallet_keys(SecretText(kPhrase), 0, 7).value();
    EXPECT_EQ(parse_json(folder.read(kHouse))["names"]["ann"]["ordAddress"], keys.ordinals_address);
}

TEST(LoadedWallet, SavingKeepsWhatTheFileHeldBesides)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet({{"theme", "dark"}, {"ord_owned", {{{"origin", "a_0"}, {"created", true}}}}}));
    ASSERT_TRUE(load_wallet(held));
    held->wallet->paymail = "ann";
    EXPECT_TRUE(save_wallet(held));
    const auto saved = parse_json(folder.read(kWallet));
    EXPECT_EQ(saved["paymail"], "ann");
    EXPECT_EQ(saved["theme"], "dark");
    EXPECT_EQ(saved["mnemonic"], kPhrase);
    EXPECT_EQ(saved["ord_owned"][0]["created"], true);
    EXPECT_EQ(folder.read(kWallet), pretty_json(saved));
    held->wallet->paymail = "bob";
    EXPECT_TRUE(save_wallet(held));
    EXPECT_EQ(parse_json(folder.read(kWallet))["paymail"], "bob");
}

TEST(LoadedWallet, ALoadAfterASaveGivesWhatWasSaved)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    held->wallet->paymail = "ann";
    ASSERT_TRUE(save_wallet(held));
    held->wallet->paymail = "bob";
    ASSERT_TRUE(load_wallet(held));
    EXPECT_EQ(held->wallet->paymail, "ann");
}

TEST(LoadedWallet, SavingDoesNotUndoWhatAnotherProgramWroteMeanwhile)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    const std::string newer = phrase_wallet({{"recv", {0, 5, 0, 0, 0, 0}}}).dump();
    folder.write(kWallet, newer);
    held->wallet->paymail = "ann";
    EXPECT_FALSE(save_wallet(held));
    EXPECT_EQ(folder.read(kWallet), newer);
}

TEST(LoadedWallet, SavingMakesNoFileThatIsGone)
{
    const TestFolder folder;
    HeldWallet held = hold_wallet();
    bind_to_wallet(folder, phrase_wallet());
    ASSERT_TRUE(load_wallet(held));
    const std::string wallets = folder.path() + "/Corvane/wallets";
    ASSERT_GT(std::filesystem::remove_all(std::filesystem::path(std::u8string(wallets.begin(), wallets.end()))), 0U);
    EXPECT_FALSE(save_wallet(held));
    EXPECT_FALSE(folder.has("wallets"));
}
