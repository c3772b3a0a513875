// What becomes of the texts that the user typed into the settings window.
#pragma once

#include "settings/settings_store.h"

struct TypedSettings {
    std::string site;
    std::string user;
    SecretText password;  // as WordPress shows it, in groups with spaces between them
};

// Site and user are taken without the white space around them. The password is taken without its spaces; an empty one
// leaves the password as it was. Returns what the user should know of it.
SettingsNotice take_typed(const TypedSettings& typed, SiteSettings& settings);
