// Worker threads: detached, never joined, and never in touch with a control. What they have to say they post.
#pragma once

#include "settings/settings_store.h"

#include <windows.h>

#include <functional>
#include <string>

// One of the things the user can have done on the site: decides everything and returns the sentence to show, UTF-8.
// Runs on a worker thread.
using Flow = std::function<std::string(const SiteSettings& settings)>;

// Runs `flow` on a worker thread with its own copy of the settings, then posts exactly one MsgFlowResult to `window`.
void start_flow(HWND window, const Flow& flow, const SiteSettings& settings);

// Asks the wallet application for a wallet, then posts exactly one MsgConnectResult to `window`.
void start_connecting(HWND window);

// Looks on a worker thread for the newest build that the maker announces, then posts MsgUpdateResult to `window`.
// Nobody hears of it when the window is gone by then.
void start_update_check(HWND window);

// Whether a worker has not come to its end yet.
bool worker_is_running();
