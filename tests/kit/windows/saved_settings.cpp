#include "kit/windows/saved_settings.h"

#include "settings/settings_store.h"

void save(const Saved& settings, const std::string& name)
{
    SiteSettings kept;
    kept.site = settings.site;
    kept.user = settings.user;
    kept.pass = StoredPassword(SecretText(settings.password));
    save_settings(kept, name);
}

Saved saved()
{
    SiteSettings kept;
    load_settings(kept);
    return {kept.site, kept.user, kept.pass.in_clear().text()};
}
