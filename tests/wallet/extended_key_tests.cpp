#include "wallet/extended_key.h"

#include "text/ascii.h"
#include "wallet/address.h"
#include "wallet/vectors/bip32.h"
#include "wallet/vectors/bip39_english.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>

namespace {

using Bytes = std::array<std::uint8_t, 32>;

// The group order n of secp256k1 (SEC 2) and its neighbours.
constexpr char kOrder[] = "fffffffffffffffffffffffffffffffebaaedce6af48a03bbfd25e8cd0364141";
constexpr char kOrderLessOne[] = "fffffffffffffffffffffffffffffffebaaedce6af48a03bbfd25e8cd0364140";
constexpr char kOrderAndOne[] = "fffffffffffffffffffffffffffffffebaaedce6af48a03bbfd25e8cd0364142";
constexpr char kAllOnes[] = "ffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffff";
constexpr char kGeneratorX[] = "79be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798";

Bytes bytes_from(const std::string& hex)
{
    const auto decoded = hex_decode(std::string(64 - hex.size(), '0') + hex);
    Bytes bytes{};
    std::copy(decoded.begin(), decoded.end(), bytes.begin());
    return bytes;
}

std::string public_key_hex(const std::string& private_key)
{
    const auto key = public_key_of(bytes_from(private_key));
    return key ? hex_encode(*key) : "none";
}

std::string tweaked(const std::string& tweak, const std::string& key)
{
    const auto child = tweaked_key(bytes_from(tweak), bytes_from(key));
    return child ? hex_encode(child->bytes()) : "none";
}

}  // namespace

TEST(Secp256k1, ThePublicKeyOfOneIsTheGenerator)
{
    EXPECT_EQ(public_key_hex("01"), std::string("02") + kGeneratorX);
}

TEST(Secp256k1, ThePublicKeyOfTheLargestKeyIsTheGeneratorMirrored)
{
    EXPECT_EQ(public_key_hex(kOrderLessOne), std::string("03") + kGeneratorX);
}

TEST(Secp256k1, AKeyOutsideTheGroupHasNoPublicKey)
{
    for (const char* key : {"00", kOrder, kOrderAndOne, kAllOnes})
        EXPECT_EQ(public_key_hex(key), "none") << key;
}

TEST(Secp256k1, ATweakIsAddedModuloTheOrder)
{
    EXPECT_EQ(tweaked("01", "01"), std::string(63, '0') + "2");  // padded to 32 bytes
    EXPECT_EQ(tweaked(kOrderLessOne, "03"), std::string(63, '0') + "2");
}

TEST(Secp256k1, ATweakOutsideTheGroupIsRefused)
{
    for (const char* tweak : {kOrder, kOrderAndOne, kAllOnes})
        EXPECT_EQ(tweaked(tweak, "05"), "none") << tweak;
}

TEST(Secp256k1, ASumOfZeroIsRefused)
{
    EXPECT_EQ(tweaked(kOrderLessOne, "01"), "none");
}

TEST(Secp256k1, ThreadsThatShareTheCurveGetTheirOwnKeys)
{
    const auto has_only_right_keys = [](const std::string& key, const std::string& expected) {
        for (int i = 0; i < 50; ++i)
            if (public_key_hex(key) != expected) return false;
        return true;
    };
    auto first = std::async(std::launch::async, has_only_right_keys, "01", std::string("02") + kGeneratorX);
    auto second = std::async(std::launch::async, has_only_right_keys, kOrderLessOne, std::string("03") + kGeneratorX);
    EXPECT_TRUE(first.get());
    EXPECT_TRUE(second.get());
}

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
