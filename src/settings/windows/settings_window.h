// The settings window: a small owned window for site, WordPress user and application password. It has no OK and no
// Cancel: closing it makes what stands in its fields the settings. All of it belongs to the user-interface thread.
#pragma once

#include "settings/settings_store.h"

#include <windows.h>

#include <string>

// What the window needs of the program. The settings and the handle live longer than the window.
struct SettingsWindowHost {
    HWND main_window = nullptr;        // owns the window
    unsigned dpi = 0;                  // of the main window
    SiteSettings* settings = nullptr;  // shown when it opens, and where its fields go
    HWND* handle = nullptr;            // the window while it is open, else null
    // The user closed the window: the settings hold its fields now.
    void (*on_closed)(SettingsNotice of_password) = nullptr;
    // The user pressed the hint and wants the page of the typed site that makes an application password.
    void (*on_password_page)(const std::string& typed_site, HWND settings_window) = nullptr;
};

// Opens the window, or brings it forward when it is open already.
void open_settings_window(const SettingsWindowHost& host);

// Copies the fields of the open window `window` to where its host keeps the settings.
[[nodiscard]] SettingsNotice copy_settings_fields(HWND window);

// Puts the site and the user of the host's settings into the fields of the open window `window`.
void show_settings_fields(HWND window);
