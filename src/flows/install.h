// Bringing the plugin to the user's site. The program uploads nothing: it hands over the zip, the user uploads it.
#pragma once

#include "settings/settings_store.h"

#include <functional>
#include <string>

// Asks the site for its plugin. When that is current, says so; otherwise writes the zip, has it shown by
// `show_package`, which returns false when it cannot, and returns what the user does next. Blocks for as long as the
// network takes; worker threads only.
[[nodiscard]] std::string install_sentence(const SiteSettings& settings, const std::function<bool()>& show_package);
