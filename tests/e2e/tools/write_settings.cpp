// Writes the program's settings file as the program itself does: SITE and USER from the command line, the application
// password from standard input (so that no list of processes shows it), the name from the third argument when given.
#include "settings/settings_store.h"

#include <iostream>

int main(int count, char** words)
{
    if (count < 3) return 2;
    std::string password;
    std::getline(std::cin, password);
    if (!password.empty() && password.back() == '\r') password.pop_back();

    SiteSettings settings;
    settings.site = words[1];
    settings.user = words[2];
    settings.pass = StoredPassword(SecretText(std::move(password)));
    if (save_settings(settings, count > 3 ? words[3] : "") != SettingsNotice::none) return 1;

    SiteSettings written;
    const bool kept = load_settings(written) == SettingsNotice::none && written.site == settings.site &&
                      written.user == settings.user &&
                      written.pass.in_clear().text() == settings.pass.in_clear().text();
    return kept ? 0 : 1;
}
