#include "settings/site_settings.h"

#include "platform/user_protection.h"
#include "text/ascii.h"

#include <utility>

std::string notice_sentence(SettingsNotice notice)
{
    switch (notice) {
    case SettingsNotice::none:
        return {};
    case SettingsNotice::unreadable:
        return "The settings cannot be read now, and stay as they are. Press the gear to try again.";
    case SettingsNotice::damaged:
        return "The settings file is damaged. Press the gear and type the settings again. The old file is kept.";
    case SettingsNotice::password_is_locked:
        return "The saved application password does not open for this Windows user. Press the gear and type it again.";
    case SettingsNotice::password_is_lost:
        return "Windows did not protect the application password, so it is not kept. Press the gear and type it "
               "again.";
    case SettingsNotice::not_saved:
        return "The settings are not saved. Close whatever else uses ui.json, then open and close the settings again.";
    }
    return {};
}

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

namespace {

std::string without_spaces(std::string_view text)
{
    std::string rest(trimmed(text));
    std::erase(rest, ' ');
    return rest;
}

}  // namespace

SettingsNotice take_typed(const TypedSettings& typed, SiteSettings& settings)
{
    settings.site = trimmed(typed.site);
    settings.user = trimmed(typed.user);
    const SecretText password(without_spaces(typed.password.text()));
    // Encrypting the same password again gives other bytes, which would change the file.
    if (password.empty() || password.text() == settings.pass.in_clear().text()) return SettingsNotice::none;
    settings.pass = StoredPassword(password);
    return settings.pass.is_stored() ? SettingsNotice::none : SettingsNotice::password_is_lost;
}
