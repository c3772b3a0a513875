#include "app/windows/busy_guard.h"

#include "app/windows/app_state.h"
#include "app/windows/cards.h"
#include "app/windows/controls.h"
#include "app/windows/name_guard.h"
#include "app/windows/open_settings.h"
#include "flows/install.h"
#include "flows/publish.h"
#include "flows/remove.h"
#include "platform/windows/shell.h"
#include "site/site_address.h"
#include "text/ascii.h"
#include "wallet_bridge/shared_files.h"

#include <utility>

namespace {

// The worker asks the window to show the package: Explorer and the browser are opened by the window's own thread.
std::string install(const SiteSettings& settings, HWND window)
{
    return install_sentence(settings, [window] { return PostMessageW(window, MsgShowPackage, 0, 0) != 0; });
}

std::string publish(const SiteSettings& settings, HWND window)
{
    return publish_sentence(settings, [window](const std::string& payname) {
        post_text(window, MsgNameKept, std::make_unique<KeptName>(KeptName{payname}));
    });
}

Flow flow_of(int button)
{
    const HWND window = app_state().main_window;
    if (button == kPublishButton) return [window](const SiteSettings& settings) { return publish(settings, window); };
    if (button == kRemoveButton) return remove_sentence;
    return [window](const SiteSettings& settings) { return install(settings, window); };
}

}  // namespace

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
    stop_name_guard();
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

void on_flow_pressed(int button)
{
    start_guarded_flow(button, flow_of(button));
}

void on_flow_result(const std::wstring& sentence)
{
    clear_busy();
    refresh_wallet_card();
    refresh_name_preview();
    set_status(sentence);
}

void show_plugin_upload(std::string site, HWND owner)
{
    show_in_explorer(plugin_package_path(), owner);
    const SiteAddress address = normalise_site(site);
    if (address.ok) open_page(address.base + "/wp-admin/plugin-install.php?tab=upload", owner);
}
