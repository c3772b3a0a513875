// The buttons that do something on the site: Install plugin, Publish and Remove. All of it runs on the user-interface
// thread.
#pragma once

#include <windows.h>

#include <string>

// Starts the flow of the pressed `button` on a worker, unless something runs.
void on_flow_pressed(int button);

// The sentence that a flow has posted.
void on_flow_result(const std::wstring& sentence);

// Shows the plugin's zip file selected in Explorer, then WordPress' own page for uploading a plugin, when `site` (as
// typed) is an address that can be used. `owner`: the window that shell errors belong to. Silent.
void show_plugin_upload(std::string site, HWND owner);
