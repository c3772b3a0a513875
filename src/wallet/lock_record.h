// The wallet lock. The wallet application can keep a wallet file's whole text encrypted in a lock record, in the file's
// place or in a seal file beside it. This program asks for no password and derives no lock key: it tells a locked file
// from an open one, and its lock key slot stays empty for the whole run.
#pragma once

#include "text/secret.h"
#include "wallet/wallet_cipher.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

struct LockKey {
    bool is_held = false;
    WipedBuffer<32> key;
    WipedBuffer<16> salt;  // with which the key was derived from the password
};

// The process's lock key: never held. Any thread.
const LockKey& lock_key();

// True for a JSON document whose "lock" is the text "QX-LOCK1". False for one that cannot be read.
bool is_lock_record(std::string_view text);

// The record as JSON text, keys sorted, indent 2.
std::string lock_record_text(const LockKey& lock, const SealedText& sealed);

// The plain text in the lock record `record`. Empty when no key is held, the record breaks a rule of its format or the
// key is another one.
std::optional<SecretText> open_lock_record(const LockKey& lock, std::string_view record);

// Encrypts `plain` and hands the lock record's text to `write`, whose result it returns. False, with nothing written,
// when no key is held or the encryption fails.
bool seal(const LockKey& lock, const SecretText& plain, const std::function<bool(const std::string&)>& write);
