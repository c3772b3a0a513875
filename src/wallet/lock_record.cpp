#include "wallet/lock_record.h"

#include "text/ascii.h"
#include "text/freed_by.h"
#include "text/json.h"
#include "wallet/digest.h"

#include <openssl/evp.h>
#include <openssl/rand.h>

#include <climits>
#include <memory>
#include <string>

namespace {

constexpr int kIvSize = 12;
constexpr int kTagSize = 16;
constexpr std::size_t kSpareRoom = 16;  // bytes that EVP_CipherUpdate may write beyond its input
constexpr std::size_t kLongestText = INT_MAX - kSpareRoom;

using Cipher = std::unique_ptr<EVP_CIPHER_CTX, FreedBy<EVP_CIPHER_CTX_free>>;  // wipes its key

enum class Direction { kDecrypt = 0, kEncrypt = 1 };

// Null when libcrypto fails.
Cipher started_cipher(std::span<const std::uint8_t, 32> key, const std::vector<std::uint8_t>& iv, Direction direction)
{
    Cipher cipher(EVP_CIPHER_CTX_new());
    const int encrypts = static_cast<int>(direction);
    if (!cipher || EVP_CipherInit_ex(cipher.get(), EVP_aes_256_gcm(), nullptr, nullptr, nullptr, encrypts) != 1 ||
        EVP_CIPHER_CTX_ctrl(cipher.get(), EVP_CTRL_GCM_SET_IVLEN, kIvSize, nullptr) != 1 ||
        EVP_CipherInit_ex(cipher.get(), nullptr, nullptr, key.data(), iv.data(), encrypts) != 1) {
        return nullptr;
    }
    return cipher;
}

// Encrypts or decrypts all of `input` into `output`.
bool run(EVP_CIPHER_CTX* cipher, std::span<const std::uint8_t> input, std::vector<std::uint8_t>& output)
{
    output.resize(input.size() + kSpareRoom);
    int size = 0;
    int last = 0;
    if (EVP_CipherUpdate(cipher, output.data(), &size, input.data(), static_cast<int>(input.size())) != 1 ||
        EVP_CipherFinal_ex(cipher, output.data() + size, &last) != 1) {
        return false;
    }
    output.resize(static_cast<std::size_t>(size) + static_cast<std::size_t>(last));
    return true;
}

}  // namespace

std::optional<SealedText> encrypt(std::span<const std::uint8_t, 32> key, const SecretText& plain)
{
    if (plain.text().size() > kLongestText) return std::nullopt;
    SealedText sealed;
    sealed.iv.resize(kIvSize);
    if (RAND_bytes(sealed.iv.data(), kIvSize) != 1) return std::nullopt;

    const Cipher cipher = started_cipher(key, sealed.iv, Direction::kEncrypt);
    if (!cipher || !run(cipher.get(), bytes_of(plain.text()), sealed.ciphertext)) return std::nullopt;
    sealed.tag.resize(kTagSize);
    if (EVP_CIPHER_CTX_ctrl(cipher.get(), EVP_CTRL_GCM_GET_TAG, kTagSize, sealed.tag.data()) != 1) return std::nullopt;
    return sealed;
}

std::optional<SecretText> decrypt(std::span<const std::uint8_t, 32> key, const SealedText& sealed)
{
    if (sealed.iv.size() != kIvSize || sealed.tag.size() != kTagSize) return std::nullopt;
    if (sealed.ciphertext.empty() || sealed.ciphertext.size() > kLongestText) return std::nullopt;

    const Cipher cipher = started_cipher(key, sealed.iv, Direction::kDecrypt);
    auto tag = sealed.tag;
    if (!cipher || EVP_CIPHER_CTX_ctrl(cipher.get(), EVP_CTRL_GCM_SET_TAG, kTagSize, tag.data()) != 1) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> plain;
    std::optional<SecretText> text;
    if (run(cipher.get(), sealed.ciphertext, plain)) text.emplace(std::string(plain.begin(), plain.end()));
    plain.resize(plain.capacity());
    wipe(plain.data(), plain.size());
    return text;
}

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
    wipe_finished_stack();  // `text` may be an open wallet file, with its phrase
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
