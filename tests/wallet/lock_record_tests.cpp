#include "wallet/lock_record.h"

#include "text/ascii.h"
#include "text/json.h"

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

namespace {

LockKey held_key()
{
    LockKey lock;
    lock.is_held = true;
    lock.key.data()[0] = 7;
    lock.salt.data()[15] = 0xAB;
    return lock;
}

const SecretText kDocument("{\"mnemonic\":\"twelve words\"}");

nlohmann::json sealed_record(const LockKey& lock)
{
    std::string record;
    EXPECT_TRUE(seal(lock, kDocument, [&record](const std::string& text) {
        record = text;
        return true;
    }));
    return parse_json(record);
}

bool opens_with(const char* member, const nlohmann::json& value)
{
    const LockKey lock = held_key();
    auto record = sealed_record(lock);
    record[member] = value;
    return open_lock_record(lock, record.dump()).has_value();
}

}  // namespace

TEST(LockRecord, IsKnownByItsMark)
{
    EXPECT_TRUE(is_lock_record(R"({"lock":"QX-LOCK1"})"));
    EXPECT_TRUE(is_lock_record(R"({"mnemonic":"x", "lock": "QX-LOCK1"})"));
}

TEST(LockRecord, IsNotKnownByAnotherMark)
{
    for (const char* text :
         {R"({"lock":"QX-LOCK2"})", R"({"lock":"QX-LOCK11"})", R"({"lock":"QX-LOCK"})", R"({"lock":"qx-lock1"})",
          R"({"lock":1})", R"({"lock":["QX-LOCK1"]})", R"({"lock":null})", R"({"lock":"QX-LOCK1\u0000"})", "{}"})
        EXPECT_FALSE(is_lock_record(text)) << text;
}

TEST(LockRecord, IsNoTextThatCannotBeRead)
{
    for (const char* text : {"", "QX-LOCK1", R"("QX-LOCK1")", R"([{"lock":"QX-LOCK1"}])", R"({"lock":"QX-LOCK1")"})
        EXPECT_FALSE(is_lock_record(text)) << text;
}

TEST(LockRecord, TheProgramHoldsNoKey)
{
    EXPECT_FALSE(lock_key().is_held);
}

TEST(LockRecord, SealingWithoutAKeyWritesNothing)
{
    bool written = false;
    EXPECT_FALSE(seal(lock_key(), kDocument, [&written](const std::string&) { return written = true; }));
    EXPECT_FALSE(written);
}

TEST(LockRecord, SealingReturnsTheResultOfTheWrite)
{
    EXPECT_TRUE(seal(held_key(), kDocument, [](const std::string&) { return true; }));
    EXPECT_FALSE(seal(held_key(), kDocument, [](const std::string&) { return false; }));
}

TEST(LockRecord, HasExactlyItsMembersInSortedOrder)
{
    const SealedText sealed{.iv = hex_decode("0102030405060708090a0b0c"),
                            .tag = hex_decode("ffeeddccbbaa99887766554433221100"),
                            .ciphertext = hex_decode("c0ffee")};
    EXPECT_EQ(lock_record_text(held_key(), sealed), R"({
  "ct": "c0ffee",
  "iter": 210000,
  "iv": "0102030405060708090a0b0c",
  "kdf": "pbkdf2-sha256",
  "lock": "QX-LOCK1",
  "salt": "000000000000000000000000000000ab",
  "tag": "ffeeddccbbaa99887766554433221100"
})");
}

TEST(LockRecord, OpensWhatWasSealed)
{
    const LockKey lock = held_key();
    const auto record = sealed_record(lock).dump();
    EXPECT_TRUE(is_lock_record(record));
    EXPECT_EQ(record.find("mnemonic"), std::string::npos);
    const auto plain = open_lock_record(lock, record);
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->text(), kDocument.text());
}

TEST(LockRecord, DoesNotOpenWithoutAKey)
{
    LockKey lock = held_key();
    const auto record = sealed_record(lock).dump();
    lock.is_held = false;
    EXPECT_FALSE(open_lock_record(lock, record));
}

TEST(LockRecord, DoesNotOpenWithAnotherMark)
{
    EXPECT_FALSE(opens_with("lock", "QX-LOCK2"));
    EXPECT_FALSE(opens_with("lock", 1));
}

TEST(LockRecord, OpensWithAnyNameOfItsKeyDerivation)
{
    EXPECT_TRUE(opens_with("kdf", "another"));
    EXPECT_TRUE(opens_with("kdf", 5));
}

TEST(LockRecord, OpensWithTenThousandToFiveMillionRoundsOnly)
{
    for (const int rounds : {10'000, 210'000, 5'000'000})
        EXPECT_TRUE(opens_with("iter", rounds)) << rounds;
    for (const int rounds : {9'999, 5'000'001, 0, -210'000})
        EXPECT_FALSE(opens_with("iter", rounds)) << rounds;
    EXPECT_FALSE(opens_with("iter", 9'999.5));
    EXPECT_FALSE(opens_with("iter", 1e300));
    EXPECT_FALSE(opens_with("iter", "210000"));
    EXPECT_FALSE(opens_with("iter", nullptr));
}

TEST(LockRecord, OpensOnlyWithHexOfTheRightSizes)
{
    const std::string sixteen = "000102030405060708090a0b0c0d0e0f";
    EXPECT_TRUE(opens_with("salt", sixteen));
    for (const std::string& salt :
         {std::string(), sixteen.substr(2), sixteen + "00", sixteen.substr(1), "zz" + sixteen})
        EXPECT_FALSE(opens_with("salt", salt)) << salt;
    EXPECT_FALSE(opens_with("salt", 5));
    for (const char* member : {"iv", "tag", "ct"}) {
        auto record = sealed_record(held_key());
        const std::string hex = record[member].get<std::string>();
        for (const std::string& wrong : {std::string(), hex.substr(2), hex + "00", hex.substr(1), "zz" + hex.substr(2)})
            EXPECT_FALSE(opens_with(member, wrong)) << member << " " << wrong;
        EXPECT_FALSE(opens_with(member, 5)) << member;
    }
}

TEST(LockRecord, ReadsHexInEitherCase)
{
    const LockKey lock = held_key();
    auto record = sealed_record(lock);
    for (const char* member : {"salt", "iv", "tag", "ct"}) {
        std::string hex = record[member];
        for (char& c : hex)
            c = c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c;
        record[member] = hex;
    }
    EXPECT_TRUE(open_lock_record(lock, record.dump()));
}

TEST(LockRecord, DoesNotOpenWhenAMemberIsMissing)
{
    const LockKey lock = held_key();
    for (const char* member : {"lock", "iter", "salt", "iv", "tag", "ct"}) {
        auto record = sealed_record(lock);
        record.erase(member);
        EXPECT_FALSE(open_lock_record(lock, record.dump())) << member;
    }
    EXPECT_FALSE(open_lock_record(lock, "no record"));
}
