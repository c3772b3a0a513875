#include "wallet/wallet_document.h"

#include "text/json.h"

#include <gtest/gtest.h>

namespace {

constexpr char kPhrase[] =
    "abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon about";
constexpr char kPrivateKey[] = "18e14a7b6a307f426a94f8114701e7c8e774e7f9a47e2c2035db29a206321725";
constexpr char kPublicKey[] = "0250863ad64a87ae8a2fe83c1af1a8403cb53f53e486d8511dad8a04887e5b2352";
constexpr char kAddress[] = "1PMycacnJaSqwwJqjawXBErnLsZ7RkXUAs";

std::optional<Wallet> wallet_in(const nlohmann::json& document)
{
    return read_wallet(SecretText(document.dump()));
}

nlohmann::json phrase_document()
{
    return {{"mnemonic", kPhrase}};
}

std::optional<Wallet> phrase_wallet_with(const char* member, const nlohmann::json& value)
{
    auto document = phrase_document();
    document[member] = value;
    return wallet_in(document);
}

}  // namespace

TEST(WalletDocument, ReadsAPhraseWalletWithAllItsMembers)
{
    const std::string text = std::string(R"({"version":2,"mnemonic":")") + kPhrase +
                             R"(","backup":true,"recv":[1,4,3,4,5,7],"show":3,"identity":"old","address":"old",
        "paymail":"anna","ord_avatar":"picture_0","ord_owned":[{"origin":"o"}],"contacts":[{"dest":"d"}]})";
    const auto wallet = read_wallet(SecretText(text));
    ASSERT_TRUE(wallet);
    EXPECT_TRUE(wallet->has_phrase);
    EXPECT_EQ(wallet->phrase.text(), kPhrase);
    EXPECT_TRUE(wallet->backup_confirmed);
    EXPECT_EQ(wallet->receive_counters, (ReceiveCounters{1, 4, 3, 4, 5, 7}));
    EXPECT_EQ(wallet->shown, 3U);
    EXPECT_EQ(wallet->paymail, "anna");
    EXPECT_EQ(wallet->picture, "picture_0");
    ASSERT_EQ(wallet->ordinals.size(), 1U);
    EXPECT_EQ(wallet->ordinals[0].origin, "o");
    ASSERT_EQ(wallet->contacts.size(), 1U);
    EXPECT_EQ(wallet->contacts[0].dest, "d");
    EXPECT_EQ(wallet->source.text(), text);
    // The keys at payment index 3 and ordinals index 7, as in the tests of the derivation.
    EXPECT_EQ(wallet->keys.private_key.text(), "727188f332929c2749a905ec8bd4600725e64b1459604a614331287308511d16");
    EXPECT_EQ(wallet->keys.address, "1CPzotU6B8bjPrx3idw7MRkTXJMZvnruUo");
    EXPECT_EQ(wallet->keys.identity_key, "02ded4e1e697bc768d79dd3f5c95cd56f332fdcf483c2a36933ba6c81d29bcf8b4");
    EXPECT_EQ(wallet->keys.ordinals_address, "1LG9vh7n6uwTPJvanyYovUZqgmLyeHbKyh");
}

TEST(WalletDocument, APhraseAloneIsAWallet)
{
    const auto wallet = wallet_in(phrase_document());
    ASSERT_TRUE(wallet);
    EXPECT_FALSE(wallet->backup_confirmed);
    EXPECT_EQ(wallet->receive_counters, ReceiveCounters{});
    EXPECT_EQ(wallet->shown, 0U);
    EXPECT_EQ(wallet->paymail + wallet->picture, "");
    EXPECT_TRUE(wallet->ordinals.empty());
    EXPECT_TRUE(wallet->contacts.empty());
}

TEST(WalletDocument, TheShownCountDefaultsToTheSecondCounterAndIsCappedAtIt)
{
    auto document = phrase_document();
    document["recv"] = {0, 10};
    EXPECT_EQ(wallet_in(document).value().shown, 10U);
    document["show"] = 50;
    const auto capped = wallet_in(document).value();
    EXPECT_EQ(capped.shown, 10U);
    document["show"] = 10;
    EXPECT_EQ(capped.keys.address, wallet_in(document).value().keys.address);
    document["show"] = -5;
    EXPECT_EQ(wallet_in(document).value().shown, 10U);
    document["show"] = "5";
    EXPECT_EQ(wallet_in(document).value().shown, 10U);
}

TEST(WalletDocument, APhraseThatFailsItsCheckIsNoWallet)
{
    EXPECT_FALSE(phrase_wallet_with("mnemonic", ""));
    EXPECT_FALSE(phrase_wallet_with("mnemonic", "abandon about"));
    EXPECT_FALSE(phrase_wallet_with("mnemonic", std::string(kPhrase) + " zoo"));
}

TEST(WalletDocument, ABadPhraseIsNotMadeUpForByASingleKey)
{
    EXPECT_FALSE(wallet_in({{"mnemonic", "no phrase"}, {"priv", kPrivateKey}, {"pub", kPublicKey}}));
}

TEST(WalletDocument, APhraseWithOtherBlanksAndCapitalsHasTheKeysOfItsStoredText)
{
    const std::string stored =
        "  Abandon\tabandon abandon abandon abandon abandon abandon abandon abandon abandon abandon  ABOUT";
    const auto wallet = phrase_wallet_with("mnemonic", stored);
    ASSERT_TRUE(wallet);
    EXPECT_EQ(wallet->phrase.text(), stored);
    EXPECT_NE(wallet->keys.identity_key, wallet_in(phrase_document()).value().keys.identity_key);
}

TEST(WalletDocument, ABackupFlagOfAWrongTypeIsAnError)
{
    EXPECT_TRUE(phrase_wallet_with("backup", false));
    for (const nlohmann::json& value : {nlohmann::json(1), nlohmann::json("true"), nlohmann::json(nullptr)})
        EXPECT_FALSE(phrase_wallet_with("backup", value)) << value;
}

TEST(WalletDocument, TextsOfAWrongTypeReadAsEmpty)
{
    EXPECT_EQ(phrase_wallet_with("paymail", 5).value().paymail, "");
    EXPECT_EQ(phrase_wallet_with("ord_avatar", {{"a", 1}}).value().picture, "");
}

TEST(WalletDocument, ReadsASingleKeyWallet)
{
    const auto wallet = wallet_in({{"priv", kPrivateKey},
                                   {"pub", kPublicKey},
                                   {"address", "old"},
                                   {"ord_avatar", "picture_0"},
                                   {"ord_owned", {{{"origin", "o"}}}},
                                   {"contacts", {{{"dest", "d"}}}}});
    ASSERT_TRUE(wallet);
    EXPECT_FALSE(wallet->has_phrase);
    EXPECT_EQ(wallet->keys.private_key.text(), kPrivateKey);
    EXPECT_EQ(wallet->keys.public_key, kPublicKey);
    EXPECT_EQ(wallet->keys.address, kAddress);
    EXPECT_EQ(wallet->keys.identity_key, kPublicKey);
    EXPECT_EQ(wallet->keys.identity_address, kAddress);
    EXPECT_EQ(wallet->keys.ordinals_address, "");
    EXPECT_EQ(wallet->picture, "picture_0");
    EXPECT_EQ(wallet->ordinals.size(), 1U);
    EXPECT_EQ(wallet->contacts.size(), 1U);
}

TEST(WalletDocument, APublicKeyThatIsMissingIsComputed)
{
    for (const auto& document :
         {nlohmann::json{{"priv", kPrivateKey}}, nlohmann::json{{"priv", kPrivateKey}, {"pub", ""}},
          nlohmann::json{{"priv", kPrivateKey}, {"mnemonic", 5}}}) {
        const auto wallet = wallet_in(document);
        ASSERT_TRUE(wallet);
        EXPECT_EQ(wallet->keys.public_key, kPublicKey);
        EXPECT_EQ(wallet->keys.address, kAddress);
    }
}

TEST(WalletDocument, APublicKeyThatIsThereIsTakenAsItIs)
{
    for (const char* key : {kPrivateKey, "a form that only the wallet application knows"}) {
        // The generator of secp256k1, which is not the public key of the private one.
        const auto wallet =
            wallet_in({{"priv", key}, {"pub", "0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798"}});
        ASSERT_TRUE(wallet) << key;
        EXPECT_EQ(wallet->keys.private_key.text(), key);
        EXPECT_EQ(wallet->keys.identity_key, "0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798");
        EXPECT_EQ(wallet->keys.address, "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH");
    }
}

TEST(WalletDocument, ASingleKeyThatIsNoKeyIsNoWallet)
{
    for (const char* key :
         {"", "no key", "00", "zz", "ffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffff"})
        EXPECT_FALSE(wallet_in({{"priv", key}})) << key;
    EXPECT_FALSE(wallet_in({{"priv", kPrivateKey}, {"pub", "02"}}));
    EXPECT_FALSE(wallet_in({{"priv", 5}, {"pub", kPublicKey}}));
    EXPECT_FALSE(wallet_in({{"priv", kPrivateKey}, {"pub", 5}}));
}

TEST(WalletDocument, WhatIsNoDocumentIsNoWallet)
{
    for (const char* text : {"", "{", "[]", "null", "\"x\"", "{}", "{\"mnemonic\":\"\xff\"}"})
        EXPECT_FALSE(read_wallet(SecretText(text))) << text;
}

TEST(WalletDocument, ADocumentNestedTooDeeplyIsNoWallet)
{
    nlohmann::json deep = 1;
    for (int i = 0; i < kDeepestJson - 1; ++i)
        deep = nlohmann::json::array({deep});
    EXPECT_TRUE(phrase_wallet_with("deep", deep));
    EXPECT_FALSE(phrase_wallet_with("deep", nlohmann::json::array({deep})));
}

TEST(WalletDocument, ALockRecordIsNoWallet)
{
    auto document = phrase_document();
    document["lock"] = "QX-LOCK1";
    EXPECT_FALSE(wallet_in(document));
    document["lock"] = "QX-LOCK2";
    EXPECT_TRUE(wallet_in(document));
}

TEST(WalletDocument, TheKeysOfAKnownWalletServeAgainWhenTheyComeFromTheSame)
{
    auto document = phrase_document();
    auto known = wallet_in(document);
    ASSERT_TRUE(known);
    known->keys.address = "taken over";
    document["paymail"] = "ann";
    document["recv"] = {9, 0, 9, 9, 9, 0};
    const auto wallet = read_wallet(SecretText(document.dump()), known);
    ASSERT_TRUE(wallet);
    EXPECT_EQ(wallet->keys.address, "taken over");
    EXPECT_EQ(wallet->keys.private_key.text(), known->keys.private_key.text());
    EXPECT_EQ(wallet->paymail, "ann");
}

TEST(WalletDocument, AnotherPhraseOrAnotherCounterHasKeysOfItsOwn)
{
    auto known = wallet_in(phrase_document());
    ASSERT_TRUE(known);
    known->keys = WalletKeys{};
    const nlohmann::json other_phrase = {
        {"mnemonic", "legal winner thank year wave sausage worth useful legal winner thank yellow"}};
    const nlohmann::json other_shown = {{"mnemonic", kPhrase}, {"recv", {0, 1}}};
    const nlohmann::json other_ordinal = {{"mnemonic", kPhrase}, {"recv", {0, 0, 0, 0, 0, 1}}};
    for (const nlohmann::json& document : {other_phrase, other_shown, other_ordinal}) {
        const auto wallet = read_wallet(SecretText(document.dump()), known);
        ASSERT_TRUE(wallet) << document;
        EXPECT_EQ(wallet->keys.address, wallet_in(document)->keys.address) << document;
        EXPECT_EQ(wallet->keys.ordinals_address, wallet_in(document)->keys.ordinals_address) << document;
    }
}

TEST(WalletDocument, ASingleKeyWalletGivesItsKeysToNoOther)
{
    const auto known = wallet_in({{"priv", kPrivateKey}});
    ASSERT_TRUE(known);
    const auto wallet = read_wallet(SecretText(phrase_document().dump()), known);
    ASSERT_TRUE(wallet);
    EXPECT_EQ(wallet->keys.identity_key, wallet_in(phrase_document())->keys.identity_key);
}

TEST(WalletDocument, TheSameBytesGiveTheKnownWalletWithoutParsing)
{
    const std::string text = phrase_document().dump();
    auto known = read_wallet(SecretText(text));
    ASSERT_TRUE(known);
    known->contacts = {{"taken over", ""}};
    EXPECT_EQ(read_wallet(SecretText(text), known)->contacts.size(), 1U);
    EXPECT_TRUE(read_wallet(SecretText(text + "\n"), known)->contacts.empty());
}

TEST(WalletDocument, TheSameBytesGiveThePaymailThatTheyHold)
{
    auto document = phrase_document();
    document["paymail"] = "ann@elsewhere.example";
    auto known = wallet_in(document);
    ASSERT_TRUE(known);
    known->paymail = "changed since";
    known = read_wallet(SecretText(document.dump()), std::move(known));
    EXPECT_EQ(known->paymail, "ann@elsewhere.example");

    known->paymail = "ann";
    const SecretText rewritten = wallet_text(*known);
    set_source(*known, rewritten);
    known->paymail = "changed since";
    EXPECT_EQ(read_wallet(rewritten, std::move(known))->paymail, "ann");
}

TEST(WalletDocument, ThatOfASingleKeyHasNoPaymailAlsoAfterARewrite)
{
    auto known = wallet_in({{"priv", kPrivateKey}});
    ASSERT_TRUE(known);
    known->paymail = "ann";
    const SecretText rewritten = wallet_text(*known);
    set_source(*known, rewritten);
    EXPECT_EQ(read_wallet(rewritten, std::move(known))->paymail, "");
}
