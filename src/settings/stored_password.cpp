#include "settings/stored_password.h"

#include "platform/user_protection.h"
#include "text/base64.h"

#include <utility>

StoredPassword::StoredPassword(const SecretText& password)
{
    if (!password.empty()) m_text = base64_encode(protect_for_user(password).value_or(""));
}

StoredPassword StoredPassword::of_file(std::string text)
{
    StoredPassword stored;
    stored.m_text = std::move(text);
    return stored;
}

SecretText StoredPassword::in_clear() const
{
    const std::string bytes = base64_decode(m_text);
    return bytes.empty() ? SecretText() : unprotect_for_user(bytes).value_or(SecretText());
}
