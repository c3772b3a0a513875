// Installing the plugin on the user's site: the program writes the zip, the user uploads it in WordPress.
#pragma once

#include "settings/settings_store.h"

#include <functional>
#include <string>

// Asks the site for its plugin. Unless that is current, writes the zip and calls `show_package`, which returns false
// when it cannot show it. Returns the sentence for the user. Blocks on the network; worker threads only.
[[nodiscard]] std::string install_sentence(const SiteSettings& settings, const std::function<bool()>& show_package);
