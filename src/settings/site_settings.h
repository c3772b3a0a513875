// The settings in memory: site, WordPress user, application password, name; what the user typed of them, and what the
// user is told about them.
#pragma once

#include "text/secret.h"

#include <string>

// What the user is told about the settings file. No other failure of it is reported.
enum class SettingsNotice {
    none,
    unreadable,          // the file exists and cannot be read: held by a program, access denied, disk error
    damaged,             // the file is not a JSON object with the members of the settings
    password_is_locked,  // the saved password cannot be decrypted: another Windows user's, another PC's, or damaged
    password_is_lost,    // Windows did not encrypt the typed password
    not_saved,           // saving would have lost what the file holds
};

// The sentence for the status line; empty for `none`.
std::string notice_sentence(SettingsNotice notice);

// The WordPress application password, in memory as in the settings file: Base64 of the bytes from CryptProtectData. It
// is in clear only while somebody holds the result of in_clear(). So a crash dump has nothing that opens without the
// Windows user's keys, and saving needs no decryption: it writes the same string, also of a password that does not
// open.
class StoredPassword {
public:
    StoredPassword() = default;

    // Protects `password`. Nothing is stored when that is empty, or when Windows refuses.
    explicit StoredPassword(const SecretText& password);

    // `text` is the member of the settings file.
    static StoredPassword of_file(std::string text);

    // Empty when there is none or it cannot be decrypted: another Windows user's, another PC's, or damaged.
    [[nodiscard]] SecretText in_clear() const;
    bool opens() const { return !in_clear().empty(); }

    bool is_stored() const { return !m_text.empty(); }  // also one that does not open
    const std::string& text_for_file() const { return m_text; }

    bool operator==(const StoredPassword&) const = default;

private:
    std::string m_text;  // empty: there is none
};

struct SiteSettings {
    std::string site;  // as typed
    std::string user;
    StoredPassword pass;  // WordPress application password, without spaces
    std::string alias;    // the payname's local part in lower case, set when a flow starts; never loaded from the file
    bool wait_for_file = false;  // the file exists and could not be read yet: it must be read before it is written
};

// The fields of the settings window.
struct TypedSettings {
    std::string site;
    std::string user;
    SecretText password;  // as WordPress shows it, in groups with spaces between them
};

// Sets site and user, trimmed, and the password without its spaces; an empty password leaves the stored one. Returns
// `password_is_lost` or `none`.
[[nodiscard]] SettingsNotice take_typed(const TypedSettings& typed, SiteSettings& settings);
