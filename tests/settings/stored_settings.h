// Settings for the tests of their file: some that can be saved, and what the file gives.
#pragma once

#include "settings/settings_store.h"

#include <string>

inline const std::string kPassword = "abcdefghijklmnopqrstuvwx";

inline SiteSettings settings_with_password(const std::string& password)
{
    SiteSettings settings;
    settings.site = "https://Zo\xC3\xAB.example/blog";
    settings.user = "ann";
    settings.pass = StoredPassword(SecretText(password));
    settings.alias = "ann";
    return settings;
}

inline SettingsNotice save(SiteSettings settings, const std::string& name)
{
    return save_settings(settings, name);
}

// What a new start finds in the file, whatever its notice.
inline SiteSettings loaded()
{
    SiteSettings settings;
    static_cast<void>(load_settings(settings));
    return settings;
}

inline SettingsNotice notice_of_load()
{
    SiteSettings settings;
    return load_settings(settings);
}
