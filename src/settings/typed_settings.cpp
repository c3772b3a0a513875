#include "settings/typed_settings.h"

#include "text/ascii.h"

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
    // Protecting the same password gives other bytes every time, and the file would change.
    if (password.empty() || password.text() == settings.pass.in_clear().text()) return SettingsNotice::none;
    settings.pass = StoredPassword(password);
    return settings.pass.is_stored() ? SettingsNotice::none : SettingsNotice::password_is_lost;
}
