#include "wallet/wallet_cipher.h"

#include "text/hex.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Key = std::array<std::uint8_t, 32>;

Key key_from(const char* hex)
{
    const auto bytes = hex_decode(hex);
    Key key{};
    std::copy(bytes.begin(), bytes.end(), key.begin());
    return key;
}

std::string opened_hex(const Key& key, const SealedText& sealed)
{
    const auto plain = decrypt(key, sealed);
    if (!plain) return "none";
    return hex_encode({reinterpret_cast<const std::uint8_t*>(plain->text().data()), plain->text().size()});
}

// Test case 15 of "The Galois/Counter Mode of Operation" (McGrew and Viega): 256-bit key, no associated data.
constexpr char kKey15[] = "feffe9928665731c6d6a8f9467308308feffe9928665731c6d6a8f9467308308";
constexpr char kPlain15[] = "d9313225f88406e5a55909c5aff5269a86a7a9531534f7da2e4c303d8a318a72"
                            "1c3c0c95956809532fcf0e2449a6b525b16aedf5aa0de657ba637b391aafd255";

SealedText sealed15()
{
    return {.iv = hex_decode("cafebabefacedbaddecaf888"),
            .tag = hex_decode("b094dac5d93471bdec1a502270e3cc6c"),
            .ciphertext = hex_decode("522dc1f099567d07f47f37a32a84427d643a8cdcbfe5c0c97598a2bd2555d1aa"
                                     "8cb08e48590dbb3da7b08b1056828838c5f61e6393ba7a0abcc9f662898015ad")};
}

const Key kKey = key_from(kKey15);
const SecretText kPlain("{\n  \"mnemonic\": \"twelve words\"\n}");

}  // namespace

TEST(WalletCipher, OpensThePublishedTexts)
{
    // Test case 14: key, IV and one block of text, all zero.
    EXPECT_EQ(opened_hex(Key{}, {.iv = hex_decode("000000000000000000000000"),
                                 .tag = hex_decode("d0d1c8a799996bf0265b98b5d48ab919"),
                                 .ciphertext = hex_decode("cea7403d4d606b6e074ec5d3baf39d18")}),
              "00000000000000000000000000000000");
    EXPECT_EQ(opened_hex(kKey, sealed15()), kPlain15);
}

TEST(WalletCipher, OpensWhatItSealed)
{
    const auto sealed = encrypt(kKey, kPlain);
    ASSERT_TRUE(sealed);
    EXPECT_EQ(sealed->iv.size(), 12U);
    EXPECT_EQ(sealed->tag.size(), 16U);
    EXPECT_EQ(sealed->ciphertext.size(), kPlain.text().size());
    const auto plain = decrypt(kKey, *sealed);
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->text(), kPlain.text());
}

TEST(WalletCipher, DrawsAFreshIvForEveryText)
{
    const auto first = encrypt(kKey, kPlain);
    const auto second = encrypt(kKey, kPlain);
    ASSERT_TRUE(first && second);
    EXPECT_NE(first->iv, second->iv);
    EXPECT_NE(first->ciphertext, second->ciphertext);
}

TEST(WalletCipher, RefusesAnIvOfAnotherSize)
{
    for (const std::size_t size : {0U, 11U, 13U, 16U}) {
        auto sealed = sealed15();
        sealed.iv.resize(size);
        EXPECT_FALSE(decrypt(kKey, sealed)) << size;
    }
}

TEST(WalletCipher, RefusesATagOfAnotherSize)
{
    for (const std::size_t size : {0U, 4U, 15U, 17U}) {
        auto sealed = sealed15();
        sealed.tag.resize(size);
        EXPECT_FALSE(decrypt(kKey, sealed)) << size;
    }
}

TEST(WalletCipher, RefusesAnEmptyCiphertext)
{
    // The tag is right: test case 13 of the same paper.
    EXPECT_FALSE(decrypt(Key{}, {.iv = hex_decode("000000000000000000000000"),
                                 .tag = hex_decode("530f8afbc74536b9a963b4f1c4cb738b"),
                                 .ciphertext = {}}));
}

TEST(WalletCipher, RefusesEveryFlippedBit)
{
    for (std::size_t bit = 0; bit < 128; ++bit) {
        auto tag = sealed15();
        tag.tag[bit / 8] = static_cast<std::uint8_t>(tag.tag[bit / 8] ^ (1U << (bit % 8)));
        EXPECT_FALSE(decrypt(kKey, tag)) << bit;
        auto text = sealed15();
        text.ciphertext[bit / 8] = static_cast<std::uint8_t>(text.ciphertext[bit / 8] ^ (1U << (bit % 8)));
        EXPECT_FALSE(decrypt(kKey, text)) << bit;
    }
}

TEST(WalletCipher, RefusesAnotherKey)
{
    Key other = kKey;
    other[31] ^= 1;
    EXPECT_FALSE(decrypt(other, sealed15()));
}
