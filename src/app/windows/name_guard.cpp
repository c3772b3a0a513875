#include "app/windows/name_guard.h"

#include "app/windows/app_state.h"
#include "app/windows/busy_guard.h"
#include "app/windows/cards.h"
#include "app/windows/controls.h"
#include "flows/name_guard_sentences.h"
#include "platform/text_conversion.h"

#include <utility>

namespace {

bool has_kept_names()
{
    return GetWindowTextLengthW(GetDlgItem(app_state().main_window, kKeptNames)) > 0;
}

void start_look()
{
    AppState& state = app_state();
    state.look = std::make_shared<RunningLook>();
    start_name_look(state.main_window, state.look);
}

}  // namespace

void start_name_guard()
{
    if (has_kept_names()) start_look();
}

void on_kept_names_pressed()
{
    if (!has_kept_names() || is_already_working()) return;
    AppState& state = app_state();
    state.user_awaits_look = true;
    set_status(L"Asking whether the names pay this wallet. It takes a minute at most.");
    // One look at a time: that of the start tells what it finds, and a stopped one is followed by another.
    if (!state.look) start_look();
}

void stop_name_guard()
{
    AppState& state = app_state();
    state.user_awaits_look = false;
    if (state.look) state.look->goes_on = false;
}

void on_guard_result(const GuardResult& result)
{
    AppState& state = app_state();
    state.look.reset();
    const bool user_awaits = std::exchange(state.user_awaits_look, false);
    // Vaultry may have moved on to another address meanwhile, which has other names.
    if (!result.look->goes_on || result.wallet != public_identity()) {
        if (user_awaits) on_kept_names_pressed();
        return;
    }
    mark_names(result.names, state.marked_names);
    refresh_wallet_card();
    const std::string sentence = user_awaits ? guard_answer(result.names) : guard_warning(result.names);
    if (!sentence.empty()) set_status(widen(sentence));
}

void on_name_kept(const KeptName& kept)
{
    mark_names({{kept.payname, NameState::pays_wallet}}, app_state().marked_names);
}
