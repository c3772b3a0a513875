#include "app/busy_guard.h"

#include "app/app_state.h"
#include "app/controls.h"
#include "text/ascii.h"

void start_guarded_flow(int button, Flow flow)
{
    AppState& state = app_state();
    if (state.is_busy) {
        set_status(L"Already working.");
        return;
    }
    const std::string name = name_field_text();
    state.settings.alias = lower_ascii(name);
    save_settings(state.settings, name);

    state.is_busy = true;
    state.waiting_button = button;
    show_waiting(button);
    start_flow(state.main_window, flow, state.settings);
}

void clear_busy()
{
    AppState& state = app_state();
    show_idle(std::exchange(state.waiting_button, 0));
    state.is_busy = false;
}
