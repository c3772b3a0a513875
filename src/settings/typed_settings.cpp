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

void take_typed(const TypedSettings& typed, SiteSettings& settings)
{
    settings.site = trimmed(typed.site);
    settings.user = trimmed(typed.user);
    SecretText password(without_spaces(typed.password.text()));
    if (!password.empty()) settings.pass = std::move(password);
}
