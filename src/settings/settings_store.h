// The per-user settings file. What it holds is never lost to settings that were not read from it.
#pragma once

#include "settings/site_settings.h"

#include <string>

// Fills `settings` from the file, up to its first member of a wrong type. Returns what the user should know; `none`
// when there is no file.
[[nodiscard]] SettingsNotice load_settings(SiteSettings& settings);

// Tries again when the file could not be read before: takes what is empty in `settings` from the file.
[[nodiscard]] SettingsNotice load_what_waits(SiteSettings& settings);

// Writes the file; `name_field` is the text of the main window's name field. Unknown
// members of the file are kept.
//
// A file that cannot be read is not written; settings that wait for it are completed from it first. A damaged one is
// renamed first ("ui.json.damaged-" and the milliseconds since 1970-01-01 UTC), and is not written when that fails or
// when there is nothing to save.
//
// Returns `not_saved` when writing would have lost something of the file; for settings that waited, the notice of the
// file; otherwise `none`, also when the file cannot be written.
[[nodiscard]] SettingsNotice save_settings(SiteSettings& settings, const std::string& name_field);

// The name kept in the settings file; empty when there is none.
std::string saved_name();
