// The WordPress plugin on its way from the executable to the site: a zip file that the user uploads in WordPress.
#pragma once

#include "platform/open_page.h"

#include <string>
#include <string_view>

// "brasslet.zip" in the folder of the settings; the folder is made when it is missing.
std::string plugin_zip_path();

// Writes the zip file whose only entry is "brasslet/brasslet.php" with the bytes of `plugin`. False when it cannot be
// written; an older zip of that name then stays as it was.
bool write_plugin_zip(const std::string& path, std::string_view plugin);

// Shows the zip file selected in Explorer, then WordPress' own page for uploading a plugin, when `site` (as typed) is
// an address that can be used. `owner`: the window that shell errors belong to. Silent. User-interface thread only.
void show_plugin_upload(std::string site, WindowHandle owner);
