// The WordPress plugin on its way from the executable to the site: a zip file that the user uploads in WordPress.
#pragma once

#include <string>
#include <string_view>

// "brasslet.zip" in the folder of the settings; the folder is made when it is missing.
std::string plugin_zip_path();

// Writes the zip file whose only entry is "brasslet/brasslet.php" with the bytes of `plugin`. False when it cannot be
// written; an older zip of that name then stays as it was.
bool write_plugin_zip(const std::string& path, std::string_view plugin);
