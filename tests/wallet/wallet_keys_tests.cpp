#include "wallet/wallet_keys.h"

#include "wallet/address.h"
#include "wallet/keys.h"

#include <gtest/gtest.h>

namespace {

const SecretText
    kPhrase("abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon about");

}  // namespace

// The expected keys were computed apart from this program, with Python's own integers and hashlib.
TEST(WalletKeys, OfThePublishedPhrase)
{
    WalletKeys keys;
    ASSERT_TRUE(derive_wallet_keys(kPhrase, 3, 7, keys));
    EXPECT_EQ(keys.private_key.text(), "727188f332929c2749a905ec8bd4600725e64b1459604a614331287308511d16");
    EXPECT_EQ(keys.public_key, "02b5c5142feb8ab0a8b1019e4fc586bd3bcfed94fe94e66604e89ab8823af7e669");
    EXPECT_EQ(keys.address, "1CPzotU6B8bjPrx3idw7MRkTXJMZvnruUo");
    EXPECT_EQ(keys.identity_key, "02ded4e1e697bc768d79dd3f5c95cd56f332fdcf483c2a36933ba6c81d29bcf8b4");
    EXPECT_EQ(keys.identity_address, "1Hg7Jm7G3DUetk4vxbAdjSf49qq3zbp8g6");
    EXPECT_EQ(keys.ordinals_address, "1LG9vh7n6uwTPJvanyYovUZqgmLyeHbKyh");
}

TEST(WalletKeys, TheIndexesMoveOnlyTheirOwnKeys)
{
    WalletKeys first;
    WalletKeys second;
    ASSERT_TRUE(derive_wallet_keys(kPhrase, 0, 0, first));
    ASSERT_TRUE(derive_wallet_keys(kPhrase, 1, 0, second));
    EXPECT_NE(first.address, second.address);
    EXPECT_EQ(first.identity_key, second.identity_key);
    EXPECT_EQ(first.ordinals_address, second.ordinals_address);
    ASSERT_TRUE(derive_wallet_keys(kPhrase, 0, 1, second));
    EXPECT_EQ(first.address, second.address);
    EXPECT_NE(first.ordinals_address, second.ordinals_address);
}

TEST(WalletKeys, TextsBelongTogether)
{
    WalletKeys keys;
    ASSERT_TRUE(derive_wallet_keys(kPhrase, 0, 0, keys));
    EXPECT_EQ(public_key_from_private(keys.private_key), keys.public_key);
    EXPECT_EQ(address_from_public_key(keys.public_key), keys.address);
    EXPECT_EQ(address_from_public_key(keys.identity_key), keys.identity_address);
}

TEST(WalletKeys, AnEmptyPhraseLeavesNothingOfTheKeysBefore)
{
    WalletKeys keys;
    ASSERT_TRUE(derive_wallet_keys(kPhrase, 0, 0, keys));
    EXPECT_FALSE(derive_wallet_keys(SecretText(), 0, 0, keys));
    EXPECT_TRUE(keys.private_key.empty());
    EXPECT_EQ(keys.public_key + keys.address + keys.identity_key + keys.identity_address + keys.ordinals_address, "");
}
