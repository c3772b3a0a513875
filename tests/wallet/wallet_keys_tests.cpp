#include "wallet/wallet_keys.h"

#include "text/ascii.h"
#include "wallet/address.h"
#include "wallet/vectors/bip32.h"

#include <gtest/gtest.h>

#include <array>
#include <span>

namespace {

constexpr char kGenerator[] = "0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798";

constexpr std::array<std::uint32_t, 5> kFiveSteps{1, 2, 3, 4, 5};

std::string public_key_of_text(const std::string& private_key)
{
    return public_key_from_private(SecretText(private_key));
}

}  // namespace

TEST(Keys, AtTheEndOfTheFiveStepsOfAPublishedChain)
{
    // Vectors 1 and 2 have exactly five steps below their master keys.
    for (const auto& vector : {kChainVectors[0], kChainVectors[1]}) {
        ASSERT_EQ(vector.steps.size(), 6U);
        std::array<std::uint32_t, 5> path{};
        for (std::size_t i = 0; i < path.size(); ++i)
            path[i] = vector.steps[i + 1].index;
        const auto key = derive_key(master_key(hex_decode(vector.seed)).value(), path);
        ASSERT_TRUE(key);
        const auto expected_private = base58_decode(vector.steps[5].extended_private_key).value();
        const auto expected_public = base58_decode(vector.steps[5].extended_public_key).value();
        EXPECT_EQ(key->private_key.text(), hex_encode(std::span(expected_private).subspan(46, 32)));
        EXPECT_EQ(key->public_key, hex_encode(std::span(expected_public).subspan(45, 33)));
        EXPECT_EQ(key->address, address_from_public_key(key->public_key));
    }
}

TEST(Keys, DerivingLeavesTheMasterKeyAsItWas)
{
    const auto master = master_key(hex_decode("000102030405060708090a0b0c0d0e0f")).value();
    const auto first = derive_key(master, kFiveSteps);
    const auto second = derive_key(master, kFiveSteps);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->public_key, second->public_key);
}

TEST(Keys, OfAPathInTwoPartsAreThoseOfTheWholePath)
{
    const auto master = master_key(hex_decode("000102030405060708090a0b0c0d0e0f")).value();
    const auto child = derive_child(derive_child(master, 1).value(), 2).value();
    EXPECT_EQ(derive_key(child, std::span(kFiveSteps).subspan(2))->public_key,
              derive_key(master, kFiveSteps)->public_key);
    EXPECT_EQ(derive_key(child, {})->private_key.text(), hex_encode(child.private_key.bytes()));
}

TEST(Keys, AFailedStepGivesNothing)
{
    EXPECT_FALSE(derive_key(ExtendedKey{}, kFiveSteps));
}

TEST(Keys, PublicKeyOfAPrivateKey)
{
    EXPECT_EQ(public_key_of_text(std::string(63, '0') + "1"), kGenerator);
    // A published pair (Bitcoin wiki, "Technical background of version 1 Bitcoin addresses").
    constexpr char kPublished[] = "0250863ad64a87ae8a2fe83c1af1a8403cb53f53e486d8511dad8a04887e5b2352";
    EXPECT_EQ(public_key_of_text("18e14a7b6a307f426a94f8114701e7c8e774e7f9a47e2c2035db29a206321725"), kPublished);
    EXPECT_EQ(public_key_of_text("18E14A7B6A307F426A94F8114701E7C8E774E7F9A47E2C2035DB29A206321725"), kPublished);
    EXPECT_EQ(address_from_public_key(kPublished), "1PMycacnJaSqwwJqjawXBErnLsZ7RkXUAs");
}

TEST(Keys, NoPublicKeyOfATextThatIsNoPrivateKey)
{
    const std::string key = "18e14a7b6a307f426a94f8114701e7c8e774e7f9a47e2c2035db29a206321725";
    for (const std::string& text : {std::string(), key.substr(1), key.substr(2), key + "00", key.substr(1) + "g",
                                    std::string(64, '0'), std::string(64, 'f')})
        EXPECT_EQ(public_key_of_text(text), "") << text;
}

namespace {

const SecretText
    kPhrase("abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon about");

}  // namespace

// The expected keys were computed independently, with Python's integers and hashlib.
TEST(WalletKeys, OfThePublishedPhrase)
{
    const WalletKeys keys = derive_wallet_keys(kPhrase, 3, 7).value();
    EXPECT_EQ(keys.private_key.text(), "727188f332929c2749a905ec8bd4600725e64b1459604a614331287308511d16");
    EXPECT_EQ(keys.public_key, "02b5c5142feb8ab0a8b1019e4fc586bd3bcfed94fe94e66604e89ab8823af7e669");
    EXPECT_EQ(keys.address, "1CPzotU6B8bjPrx3idw7MRkTXJMZvnruUo");
    EXPECT_EQ(keys.identity_key, "02ded4e1e697bc768d79dd3f5c95cd56f332fdcf483c2a36933ba6c81d29bcf8b4");
    EXPECT_EQ(keys.identity_address, "1Hg7Jm7G3DUetk4vxbAdjSf49qq3zbp8g6");
    EXPECT_EQ(keys.ordinals_address, "1LG9vh7n6uwTPJvanyYovUZqgmLyeHbKyh");
}

TEST(WalletKeys, TheIndexesMoveOnlyTheirOwnKeys)
{
    const WalletKeys first = derive_wallet_keys(kPhrase, 0, 0).value();
    WalletKeys second = derive_wallet_keys(kPhrase, 1, 0).value();
    EXPECT_NE(first.address, second.address);
    EXPECT_EQ(first.identity_key, second.identity_key);
    EXPECT_EQ(first.ordinals_address, second.ordinals_address);
    second = derive_wallet_keys(kPhrase, 0, 1).value();
    EXPECT_EQ(first.address, second.address);
    EXPECT_NE(first.ordinals_address, second.ordinals_address);
}

TEST(WalletKeys, TextsBelongTogether)
{
    const WalletKeys keys = derive_wallet_keys(kPhrase, 0, 0).value();
    EXPECT_EQ(public_key_from_private(keys.private_key), keys.public_key);
    EXPECT_EQ(address_from_public_key(keys.public_key), keys.address);
    EXPECT_EQ(address_from_public_key(keys.identity_key), keys.identity_address);
}

TEST(WalletKeys, AnEmptyPhraseHasNone)
{
    EXPECT_FALSE(derive_wallet_keys(SecretText(), 0, 0).has_value());
}
