// One connect or site flow at a time, and the buttons that start a flow: Install plugin, Publish and Remove. All of it
// runs on the user-interface thread.
#pragma once

#include "app/windows/workers.h"

#include <windows.h>

#include <string>

// Reads what the user typed, saves the settings and starts `flow` for the pressed `button`; while another one runs it
// only says so in the status line.
void start_guarded_flow(int button, const Flow& flow);

// The same for work that is started otherwise. Tells in the status line, and returns true, that something runs.
bool is_already_working();

// From now on something runs, for the pressed `button`.
void set_busy(int button);

// What ran has reported: the buttons are as they were.
void clear_busy();

// Starts the flow of the pressed `button` on a worker, unless something runs.
void on_flow_pressed(int button);

// The sentence that a flow has posted.
void on_flow_result(const std::wstring& sentence);

// Shows the plugin's zip file selected in Explorer, then WordPress' own page for uploading a plugin, when `site` (as
// typed) is an address that can be used. `owner`: the window that shell errors belong to. Silent.
void show_plugin_upload(std::string site, HWND owner);
