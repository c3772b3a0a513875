// What the user-interface thread keeps for the life of the process. No other thread may touch it; a worker gets copies.
#pragma once

#include "app/card_texts.h"
#include "app/layout.h"
#include "app/windows/window_icons.h"
#include "app/windows/workers.h"
#include "settings/settings_store.h"
#include "ui/geometry.h"
#include "ui/windows/control_table.h"

#include <windows.h>

#include <memory>

struct AppState {
    HWND main_window = nullptr;
    HWND settings_window = nullptr;  // null while it is closed
    HWND tips = nullptr;             // the tooltips of labels that are cut off
    unsigned dpi = kDefaultDpi;
    SiteSettings settings;
    SettingsNotice settings_notice = SettingsNotice::none;  // of the file as it was read at the start

    Fonts fonts;
    Fonts fonts_at_creation;  // the Close button keeps its first font when the DPI changes
    Brush card_brush;
    Brush edit_brush;
    WindowIcons icons;
    MainLayout layout;
    bool is_new = true;  // until the window hears of its size for the first time: the controls were made for it

    bool is_busy = false;
    int waiting_button = 0;  // id of the button that reads "Wait..."; 0: none
    bool update_is_available = false;

    MarkedNames marked_names;
    std::shared_ptr<RunningLook> look;  // until its result is there, also when it was stopped
    bool user_awaits_look = false;
};

inline AppState& app_state()
{
    static AppState state;
    return state;
}
