// Property: a lock record opens only with a held key and only to what was sealed with that key, whatever was made of
// its text; every text that is sealed opens to itself.
#include "wallet/lock_record.h"

#include "fuzz/target.h"

#include <algorithm>

namespace {

// The only text that was ever sealed with the key, in the records of the corpus.
constexpr char kSealed[] = R"({"priv":"","pub":"","note":"sealed for the corpus"})";

LockKey held_key()
{
    LockKey lock;
    lock.is_held = true;
    std::fill_n(lock.key.data(), lock.key.size(), std::uint8_t{0x11});
    std::fill_n(lock.salt.data(), lock.salt.size(), std::uint8_t{0x22});
    return lock;
}

void check_sealing(const LockKey& lock, std::string_view bytes)
{
    const SecretText plain{std::string(bytes)};
    std::string record;
    const auto write = [&record](const std::string& text) {
        record = text;
        return true;
    };
    require(seal(lock, plain, write) && is_lock_record(record), "a text can be sealed");
    const auto opened = open_lock_record(lock, record);
    require(bytes.empty() ? !opened : opened && opened->text() == bytes, "what is sealed opens to itself");
}

void check(std::string_view bytes)
{
    static const LockKey lock = held_key();
    require(!open_lock_record(lock_key(), bytes), "without a key nothing opens");
    const auto opened = open_lock_record(lock, bytes);
    require(!opened || is_lock_record(bytes), "what opens is a lock record");
    require(!opened || opened->text() == kSealed, "nothing opens but what was sealed");
    check_sealing(lock, bytes);
}

const FuzzTarget target("lock_record", check);

}  // namespace
