// The wallet lock. The wallet application can encrypt a whole wallet file into a lock record, in the file's place or in
// a seal file beside it. This program asks for no password and derives no lock key: it tells a locked file from an open
// one, and its lock key is never held.
#pragma once

#include "text/secret.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// AES-256-GCM with a random 12-byte IV, a 16-byte tag and no associated data.
struct SealedText {
    std::vector<std::uint8_t> iv;          // 12 bytes
    std::vector<std::uint8_t> tag;         // 16 bytes
    std::vector<std::uint8_t> ciphertext;  // as long as the plain text
};

// Empty when libcrypto fails.
[[nodiscard]] std::optional<SealedText> encrypt(std::span<const std::uint8_t, 32> key, const SecretText& plain);

// Empty when the IV or the tag has another size, the ciphertext is empty, or the tag does not match.
[[nodiscard]] std::optional<SecretText> decrypt(std::span<const std::uint8_t, 32> key, const SealedText& sealed);

struct LockKey {
    bool is_held = false;
    WipedBuffer<32> key;
    WipedBuffer<16> salt;  // with which the key was derived from the password
};

// The process's lock key: never held. Any thread.
const LockKey& lock_key();

// True for a JSON object whose "lock" is "QX-LOCK1".
bool is_lock_record(std::string_view text);

// The record as JSON text, keys sorted, indent 2.
std::string lock_record_text(const LockKey& lock, const SealedText& sealed);

// The plain text of the lock record `record`. Empty when no key is held, the record is malformed or the key is wrong.
[[nodiscard]] std::optional<SecretText> open_lock_record(const LockKey& lock, std::string_view record);

// Encrypts `plain` and hands the lock record's text to `write`, whose result it returns. False, with nothing written,
// when no key is held or the encryption fails.
[[nodiscard]] bool seal(const LockKey& lock, const SecretText& plain,
                        const std::function<bool(const std::string&)>& write);
