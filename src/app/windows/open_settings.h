// The settings window as the main window opens it.
#pragma once

#include "settings/site_settings.h"

void open_settings();

// What stands in the settings window's fields, when it is open, becomes the settings.
[[nodiscard]] SettingsNotice copy_open_settings();

// What the user should know of the file as it was read at the start.
void tell_of_read_settings();

// Saves the settings and the name field. The status line says what the user should know of that, or else `before`.
void keep_settings(SettingsNotice before = SettingsNotice::none);
