// The per-user settings file: site, WordPress user, application password (protected for the current Windows user),
// name. What the file holds is never lost to settings that were not read from it.
#pragma once

#include "settings/settings_notice.h"
#include "settings/stored_password.h"

#include <string>

struct SiteSettings {
    std::string site;  // as typed
    std::string user;
    StoredPassword pass;  // WordPress application password, without spaces
    std::string alias;    // the payname's local part in lower case, set when a flow starts; never loaded from the file
    bool wait_for_file = false;  // the file is there, but could not be read yet: it is not replaced before it was
};

// Folder of the settings and of the kept names; made when it is missing.
std::string settings_folder();

// Fills `settings` as far as the file goes, and returns what the user should know. A missing file is nothing to know.
SettingsNotice load_settings(SiteSettings& settings);

// Tries again when the file could not be read before: what is empty in `settings` is taken from the file.
SettingsNotice load_what_waits(SiteSettings& settings);

// Writes the file; `name_field` is the text of the main window's name field. What the program does not know in the file
// stays as it stands.
//
// A file that cannot be read is not written; settings that wait for it are completed from it first. A damaged one is
// moved to a name of its own first ("ui.json.damaged-" and the milliseconds since 1970-01-01 UTC), and stays where it
// is when that fails or when there is nothing to save.
//
// Returns `not_saved` when the file would have lost something, and of settings that waited what the user should know of
// the file; otherwise nothing is said when it cannot be written.
SettingsNotice save_settings(SiteSettings& settings, const std::string& name_field);

// The name kept in the settings file; empty when there is none.
std::string saved_name();
