#include "app/windows/busy_guard.h"

#include "app/windows/app_state.h"
#include "app/windows/controls.h"
#include "app/windows/open_settings.h"
#include "text/ascii.h"

void start_guarded_flow(int button, const Flow& flow)
{
    if (is_already_working()) return;
    AppState& state = app_state();
    const SettingsNotice of_password = copy_open_settings();
    state.settings.alias = lower_ascii(name_field_text());
    keep_settings(of_password);

    set_busy(button);
    start_flow(state.main_window, flow, state.settings);
}

bool is_already_working()
{
    if (app_state().is_busy) set_status(L"Already working.");
    return app_state().is_busy;
}

void set_busy(int button)
{
    app_state().is_busy = true;
    app_state().waiting_button = button;
    show_waiting(button);
}

void clear_busy()
{
    AppState& state = app_state();
    show_idle(std::exchange(state.waiting_button, 0));
    state.is_busy = false;
}
