#include "wallet/lock_record.h"

#include "text/hex.h"
#include "text/json.h"

namespace {

constexpr char kLockMark[] = "QX-LOCK1";
constexpr int kRounds = 210'000;
constexpr int kFewestRounds = 10'000;
constexpr int kMostRounds = 5'000'000;

bool has_lock_mark(const nlohmann::json& document)
{
    return text_member(document, "lock") == kLockMark;
}

bool has_plausible_rounds(const nlohmann::json& record)
{
    const auto rounds = record.find("iter");
    if (rounds == record.end() || !rounds->is_number()) return false;
    const auto count = rounds->get<double>();
    return count >= kFewestRounds && count <= kMostRounds;
}

}  // namespace

const LockKey& lock_key()
{
    static const LockKey never_held;
    return never_held;
}

bool is_lock_record(std::string_view text)
{
    const bool is_record = has_lock_mark(parse_json(text));
    wipe_finished_stack();  // an open wallet file may have gone through the parser
    return is_record;
}

std::string lock_record_text(const LockKey& lock, const SealedText& sealed)
{
    return pretty_json({{"lock", kLockMark},
                        {"kdf", "pbkdf2-sha256"},
                        {"iter", kRounds},
                        {"salt", hex_encode(lock.salt.bytes())},
                        {"iv", hex_encode(sealed.iv)},
                        {"tag", hex_encode(sealed.tag)},
                        {"ct", hex_encode(sealed.ciphertext)}});
}

std::optional<SecretText> open_lock_record(const LockKey& lock, std::string_view record)
{
    if (!lock.is_held) return std::nullopt;
    const auto document = parse_json(record);
    if (!has_lock_mark(document) || !has_plausible_rounds(document)) return std::nullopt;
    if (hex_decode(text_member(document, "salt")).size() != lock.salt.size()) return std::nullopt;
    return decrypt(lock.key.bytes(), {.iv = hex_decode(text_member(document, "iv")),
                                      .tag = hex_decode(text_member(document, "tag")),
                                      .ciphertext = hex_decode(text_member(document, "ct"))});
}

bool seal(const LockKey& lock, const SecretText& plain, const std::function<bool(const std::string&)>& write)
{
    if (!lock.is_held) return false;
    const auto sealed = encrypt(lock.key.bytes(), plain);
    return sealed && write(lock_record_text(lock, *sealed));
}
