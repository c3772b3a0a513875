// Removing a name from the user's site.
#pragma once

#include "settings/settings_store.h"

#include <string>

// Has the site drop settings.alias, forgets the name on this PC, tells the wallet application, and returns the one
// sentence for the user. Needs no wallet. Blocks for as long as the network takes; worker threads only.
[[nodiscard]] std::string remove_sentence(const SiteSettings& settings);
