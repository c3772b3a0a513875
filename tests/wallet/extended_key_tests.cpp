#include "wallet/extended_key.h"

#include "text/hex.h"
#include "wallet/base58.h"
#include "wallet/secp256k1.h"
#include "wallet/vectors/bip32.h"
#include "wallet/vectors/bip39_english.h"

#include <gtest/gtest.h>

namespace {

// Chain code and key out of a serialized extended key (BIP32, "Serialization format"), as hex.
std::string chain_code_and_key(const char* extended_key)
{
    constexpr std::size_t kChainCodeAt = 13;
    constexpr std::size_t kChecksumAt = 78;
    const auto bytes = base58_decode(extended_key).value();
    return hex_encode(std::span(bytes).subspan(kChainCodeAt, kChecksumAt - kChainCodeAt));
}

std::string chain_code_and_private_key(const ExtendedKey& key)
{
    return hex_encode(key.chain_code.bytes()) + "00" + hex_encode(key.private_key.bytes());
}

std::string chain_code_and_public_key(const ExtendedKey& key)
{
    return hex_encode(key.chain_code.bytes()) + hex_encode(public_key_of(key.private_key.bytes()).value());
}

}  // namespace

TEST(ExtendedKey, EveryStepOfThePublishedChains)
{
    for (const auto& vector : kChainVectors) {
        auto key = master_key(hex_decode(vector.seed)).value();
        for (std::size_t i = 0; i < vector.steps.size(); ++i) {
            const ChainStep& step = vector.steps[i];
            if (i > 0) key = derive_child(key, step.index).value();
            EXPECT_EQ(chain_code_and_private_key(key), chain_code_and_key(step.extended_private_key));
            EXPECT_EQ(chain_code_and_public_key(key), chain_code_and_key(step.extended_public_key));
        }
    }
}

TEST(ExtendedKey, TheMasterKeysOfThePublishedPhrases)
{
    for (const auto& vector : kPhraseVectors) {
        const auto key = master_key(hex_decode(vector.seed)).value();
        EXPECT_EQ(chain_code_and_private_key(key), chain_code_and_key(vector.master)) << vector.phrase;
    }
}

TEST(ExtendedKey, AParentThatIsNoKeyHasNoNormalChild)
{
    const ExtendedKey zero;
    EXPECT_FALSE(derive_child(zero, 0));
    EXPECT_FALSE(derive_child(zero, kHardened - 1));
}

TEST(ExtendedKey, TheLastNormalAndTheFirstHardenedChildDiffer)
{
    const auto parent = master_key(hex_decode("000102030405060708090a0b0c0d0e0f")).value();
    const auto normal = derive_child(parent, kHardened - 1).value();
    const auto hardened = derive_child(parent, kHardened).value();
    EXPECT_NE(chain_code_and_private_key(normal), chain_code_and_private_key(hardened));
}
