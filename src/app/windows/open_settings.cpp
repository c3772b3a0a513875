#include "app/windows/open_settings.h"

#include "app/windows/app_state.h"
#include "app/windows/cards.h"
#include "app/windows/controls.h"
#include "platform/text_conversion.h"
#include "settings/windows/settings_window.h"

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
    open_settings_window({state.main_window, state.dpi, &state.settings, &state.settings_window, on_closed});
}

SettingsNotice copy_open_settings()
{
    const HWND window = app_state().settings_window;
    return window == nullptr ? SettingsNotice::none : copy_settings_fields(window);
}

void read_settings()
{
    app_state().settings_notice = load_settings(app_state().settings);
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
