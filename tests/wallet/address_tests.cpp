#include "wallet/address.h"

#include "text/ascii.h"
#include "wallet/digest.h"
#include "wallet/vectors/base58.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(Base58, WritesThePublishedVectors)
{
    for (const auto& vector : kBase58Vectors)
        EXPECT_EQ(base58_encode(hex_decode(vector.hex)), vector.text);
}

TEST(Base58, ReadsThePublishedVectors)
{
    for (const auto& vector : kBase58Vectors)
        EXPECT_EQ(base58_decode(vector.text), hex_decode(vector.hex));
}

TEST(Base58, RefusesEveryCharacterOutsideTheAlphabet)
{
    EXPECT_TRUE(base58_decode("1a").has_value());
    for (const char* text : {"10", "1O", "1I", "1l", "1 ", "+", "a\n", "\xc3\xa4"})
        EXPECT_FALSE(base58_decode(text).has_value()) << text;
    EXPECT_FALSE(base58_decode(std::string_view("1\0", 2)).has_value());
}

namespace {

struct PublishedAddress {
    const char* hash;
    const char* address;
};

constexpr PublishedAddress kPublished[] = {
    {"62e907b15cbf27d5425399ebf6f0fb50ebb88f18", "1A1zP1eP5QGefi2DMPTfTL5SLmv7DivfNa"},  // block 0
    {"65a16059864a2fdbc7c99a4723a8395bc6f188eb", "1AGNa15ZQXAZUgFiqJ2i7Z2DPU2J6hW62i"},  // Bitcoin Core, key_io_valid
    {"3442193e1bb70916e914552172cd4e2dbc9df811", "15mKKb2eos1hWa6tisdPwwDC1a5J1y9nma"},  // BIP32, vector 1, master
    {"751e76e8199196d454941c45d1b3a323f1433bd6", "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH"},  // hash of the generator point
};

Hash160 hash_of(const char* hex)
{
    const auto bytes = hex_decode(hex);
    Hash160 hash{};
    if (bytes.size() == hash.size()) std::copy(bytes.begin(), bytes.end(), hash.begin());
    return hash;
}

// Version byte, as many bytes of hash, and the checksum over both.
std::string text_with_checksum(std::size_t hash_size)
{
    std::vector<std::uint8_t> payload(1 + hash_size, 0x5A);
    payload[0] = 0x00;
    const auto once = sha256(payload).value();
    const auto twice = sha256(once.bytes()).value();
    payload.insert(payload.end(), twice.data(), twice.data() + 4);
    return base58_encode(payload);
}

constexpr char kAddress[] = "1A1zP1eP5QGefi2DMPTfTL5SLmv7DivfNa";

}  // namespace

TEST(Address, WritesPublishedAddresses)
{
    for (const auto& published : kPublished)
        EXPECT_EQ(address_from_hash160(hash_of(published.hash)), published.address);
}

TEST(Address, ReadsPublishedAddresses)
{
    for (const auto& published : kPublished)
        EXPECT_EQ(hash160_from_address(published.address), hash_of(published.hash));
}

TEST(Address, OfAPublicKey)
{
    // The generator point of secp256k1, which is the public key of the private key 1.
    constexpr char kGenerator[] = "0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798";
    EXPECT_EQ(address_from_public_key(kGenerator), "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH");
    EXPECT_EQ(hash160(hex_decode(kGenerator)), hash_of("751e76e8199196d454941c45d1b3a323f1433bd6"));
    EXPECT_EQ(address_from_public_key("0279BE667EF9DCBBAC55A06295CE870B07029BFCDB2DCE28D959F2815B16F81798"),
              "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH");
}

TEST(Address, IsEmptyForAPublicKeyThatIsNot33BytesOfHex)
{
    const std::string key = "0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798";
    EXPECT_EQ(address_from_public_key(""), "");
    EXPECT_EQ(address_from_public_key(key.substr(2)), "");
    EXPECT_EQ(address_from_public_key(key.substr(1)), "");
    EXPECT_EQ(address_from_public_key(key + "00"), "");
    EXPECT_EQ(address_from_public_key(key.substr(1) + "z"), "");
}

TEST(Address, EveryLeadingZeroByteOfThePayloadIsAOne)
{
    Hash160 hash = hash_of("62e907b15cbf27d5425399ebf6f0fb50ebb88f18");
    for (std::size_t zeros = 0; zeros <= hash.size(); ++zeros) {
        std::fill_n(hash.begin(), zeros, std::uint8_t{0});
        const std::string address = address_from_hash160(hash);
        EXPECT_EQ(address.find_first_not_of('1'), zeros + 1) << address;
        EXPECT_EQ(hash160_from_address(address), hash) << address;
    }
    EXPECT_EQ(address_from_hash160(Hash160{}), "1111111111111111111114oLvT2");
}

TEST(Address, OfTheShortestAndOfTheLongestFormIsRead)
{
    Hash160 hash{};
    hash[19] = 1;
    const std::string shortest = address_from_hash160(hash);
    EXPECT_EQ(shortest.size(), 26U);
    EXPECT_EQ(hash160_from_address(shortest), hash);
    hash.fill(0xFF);
    const std::string longest = address_from_hash160(hash);
    EXPECT_EQ(longest.size(), 34U);
    EXPECT_EQ(hash160_from_address(longest), hash);
}

TEST(Address, RefusesTextsBelow26AndAbove35Characters)
{
    EXPECT_FALSE(hash160_from_address(""));
    EXPECT_FALSE(hash160_from_address("1A1zP1eP5QGefi2DMPTfTL5SL"));
    EXPECT_FALSE(hash160_from_address("1" + std::string(kAddress) + "1"));
    EXPECT_FALSE(hash160_from_address(std::string(1'000'000, 'z')));
}

TEST(Address, RefusesCharactersOutsideTheAlphabet)
{
    for (const char wrong : {'0', 'O', 'I', 'l', ' ', '+'}) {
        std::string address = kAddress;
        address[10] = wrong;
        EXPECT_FALSE(hash160_from_address(address)) << wrong;
    }
}

TEST(Address, RefusesEveryOtherCharacterAsAWrongChecksum)
{
    for (std::size_t i = 0; i < sizeof kAddress - 1; ++i) {
        std::string address = kAddress;
        address[i] = address[i] == 'z' ? 'y' : 'z';
        EXPECT_FALSE(hash160_from_address(address)) << address;
    }
}

TEST(Address, RefusesEveryOtherVersion)
{
    for (const char* address : kAddressesOfOtherVersions)
        EXPECT_FALSE(hash160_from_address(address)) << address;
}

TEST(Address, RefusesWhatIsNoAddressAtAll)
{
    for (const char* address : kInvalidAddresses)
        EXPECT_FALSE(hash160_from_address(address)) << address;
}

TEST(Address, RefusesAPayloadOfAnotherSizeWithARightChecksum)
{
    EXPECT_TRUE(hash160_from_address(text_with_checksum(20)));
    EXPECT_FALSE(hash160_from_address(text_with_checksum(19)));
    EXPECT_FALSE(hash160_from_address(text_with_checksum(21)));
}

TEST(Address, RefusesAnAddressWithAByteBehindIt)
{
    Hash160 hash{};
    hash[0] = 1;
    auto payload = base58_decode(address_from_hash160(hash)).value();
    payload.push_back(0);
    const std::string text = base58_encode(payload);
    EXPECT_LE(text.size(), 35U);  // it is not refused for its length
    EXPECT_FALSE(hash160_from_address(text));
}
