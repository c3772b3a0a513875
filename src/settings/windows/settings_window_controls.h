// The controls of the settings window.
#pragma once

#include "settings/settings_store.h"
#include "settings/site_settings.h"
#include "ui/windows/control_table.h"

enum SettingsControlId : int {
    kSiteField = 2001,
    kUserField = 2002,
    kPasswordField = 2003,
    kCloseSettingsButton = 2004,
    kPasswordHint = 2005,
    kSiteCaption = 2006,
    kUserCaption = 2007,
    kPasswordCaption = 2008,
    kShowPasswordButton = 2009,
};

// Of the window's client area, in pixels.
Size settings_client_size(unsigned dpi);

// Makes all of them, in their places at `dpi`, and shows what `settings` hold; the password field stays empty.
void create_settings_controls(HWND window, const SiteSettings& settings, const Fonts& fonts, unsigned dpi);

// Puts site and user into their fields.
void show_in_fields(HWND window, const SiteSettings& settings);

// Tells screen readers what the eye button would do.
void name_eye(HWND window, bool password_is_shown);

// The same controls in other fonts and in their places at another `dpi`, not painted yet.
void fit_settings_controls(HWND window, const Fonts& fonts, unsigned dpi);

// What stands in the fields, as typed.
TypedSettings typed_settings(HWND window);
