#include "app/open_settings.h"

#include "app/app_state.h"
#include "app/controls.h"
#include "app/wallet_card.h"
#include "settings/settings_window.h"

namespace {

void keep_settings()
{
    save_settings(app_state().settings, name_field_text());
    refresh_name_preview();
}

}  // namespace

void open_settings()
{
    AppState& state = app_state();
    open_settings_window({state.main_window, state.dpi, &state.settings, &state.settings_window, keep_settings});
}

void take_open_settings()
{
    if (app_state().settings_window != nullptr) take_settings_fields(app_state().settings_window);
}
