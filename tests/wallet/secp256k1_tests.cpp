#include "wallet/secp256k1.h"

#include "text/hex.h"

#include <gtest/gtest.h>

#include <algorithm>

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
