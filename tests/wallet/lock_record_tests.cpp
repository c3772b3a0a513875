#include "wallet/lock_record.h"

#include "text/hex.h"
#include "text/json.h"

#include <gtest/gtest.h>

namespace {

LockKey held_key()
{
    LockKey lock;
    lock.is_held = true;
    lock.key.data()[0] = 7;
    lock.salt.data()[15] = 0xAB;
    return lock;
}

const SecretText kPlain("{\"mnemonic\":\"twelve words\"}");

nlohmann::json sealed_record(const LockKey& lock)
{
    std::string record;
    EXPECT_TRUE(seal(lock, kPlain, [&record](const std::string& text) {
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
    EXPECT_FALSE(seal(lock_key(), kPlain, [&written](const std::string&) { return written = true; }));
    EXPECT_FALSE(written);
}

TEST(LockRecord, SealingReturnsTheResultOfTheWrite)
{
    EXPECT_TRUE(seal(held_key(), kPlain, [](const std::string&) { return true; }));
    EXPECT_FALSE(seal(held_key(), kPlain, [](const std::string&) { return false; }));
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
    EXPECT_EQ(plain->text(), kPlain.text());
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
