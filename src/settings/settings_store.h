// The per-user settings file: site, WordPress user, application password (protected for the current Windows user),
// name.
#pragma once

#include "text/secret.h"

#include <string>

struct SiteSettings {
    std::string site;  // as typed
    std::string user;
    SecretText pass;    // WordPress application password, without spaces
    std::string alias;  // the payname's local part in lower case, set when a flow starts; never loaded from the file
};

// Folder of the settings and of the payname registry; made when it is missing.
std::string settings_folder();

// Fills `settings` as far as the file goes; a malformed file ends the load silently.
void load_settings(SiteSettings& settings);

// Writes the file; `name_field` is the text of the main window's name field. Nothing is said when it cannot be written.
void save_settings(const SiteSettings& settings, const std::string& name_field);

// The name kept in the settings file; empty when there is none.
std::string saved_name();
