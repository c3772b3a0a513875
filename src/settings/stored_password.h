// The WordPress application password at rest.
#pragma once

#include "text/secret.h"

#include <string>

// In memory the password stands as it does in the settings file: as base64 of what CryptProtectData made of it. It is
// in clear for as long as somebody holds what in_clear() returned, and no longer. A crash dump that leaves this PC
// carries nothing that opens without the Windows user's own keys, and a save needs no password: it writes the same text
// again, also that of a password that does not open here.
class StoredPassword {
public:
    StoredPassword() = default;

    // Protects `password`. Nothing is stored when that is empty, or when Windows refuses.
    explicit StoredPassword(const SecretText& password);

    // `text` is the member of the settings file.
    static StoredPassword of_file(std::string text);

    // Empty when there is none or it does not open: another Windows user's, another PC's, or damaged.
    SecretText in_clear() const;
    bool opens() const { return !in_clear().empty(); }

    bool is_stored() const { return !m_text.empty(); }  // also one that does not open
    const std::string& text_for_file() const { return m_text; }

    bool operator==(const StoredPassword&) const = default;

private:
    std::string m_text;  // empty: there is none
};
