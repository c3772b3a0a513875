#include "app/windows/open_settings.h"

#include "app/windows/app_state.h"
#include "app/windows/cards.h"
#include "app/windows/controls.h"
#include "platform/text_conversion.h"
#include "platform/windows/shell.h"
#include "settings/windows/settings_window.h"
#include "site/site_address.h"

namespace {

void tell(SettingsNotice notice)
{
    if (notice != SettingsNotice::none) set_status(widen(notice_sentence(notice)));
}

// The file could not be read at the start, and now it was.
void show_late_settings()
{
    AppState& state = app_state();
    set_status({});
    if (state.settings_window != nullptr) show_settings_fields(state.settings_window);
    if (name_field_text().empty()) fill_name_field();
    refresh_name_preview();
}

void read_what_waits()
{
    AppState& state = app_state();
    if (!state.settings.wait_for_file) return;
    const SettingsNotice notice = load_what_waits(state.settings);
    if (!state.settings.wait_for_file) show_late_settings();
    tell(notice);
}

// WordPress' own page for this, since 5.6: it asks whether to give the program access, and shows the password to copy.
void open_password_page(const std::string& typed_site, HWND settings_window)
{
    std::string typed = typed_site;
    const SiteAddress site = normalise_site(typed);
    if (!site.ok || site.host.find('.') == std::string::npos) {
        set_status(L"Type the site first. It needs https.");
        return;
    }
    if (!open_page(site.base + "/wp-admin/authorize-application.php?app_name=Brasslet", settings_window))
        set_status(L"The page did not open. Open your profile in WordPress, and go to Application Passwords there.");
}

void on_closed(SettingsNotice of_password)
{
    keep_settings(of_password);
    refresh_name_preview();
}

}  // namespace

void open_settings()
{
    AppState& state = app_state();
    read_what_waits();
    open_settings_window(
        {state.main_window, state.dpi, &state.settings, &state.settings_window, on_closed, open_password_page});
}

SettingsNotice copy_open_settings()
{
    const HWND window = app_state().settings_window;
    return window == nullptr ? SettingsNotice::none : copy_settings_fields(window);
}

void tell_of_read_settings()
{
    tell(app_state().settings_notice);
}

void keep_settings(SettingsNotice before)
{
    AppState& state = app_state();
    const bool waited = state.settings.wait_for_file;
    const SettingsNotice saved = save_settings(state.settings, name_field_text());
    if (waited && !state.settings.wait_for_file) show_late_settings();
    tell(saved == SettingsNotice::none ? before : saved);
}
