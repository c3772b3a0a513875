// Removing a name from the user's site.
#pragma once

#include "settings/settings_store.h"

#include <string>

// Deletes settings.alias on the site, then on this PC, tells the wallet application, and returns the sentence for the
// user. Needs no wallet. Blocks on the network; worker threads only.
[[nodiscard]] std::string remove_sentence(const SiteSettings& settings);
