// Publishing a name on the user's site: the program's main act.
#pragma once

#include "settings/settings_store.h"

#include <string>

// Publishes settings.alias for the connected wallet, proves from outside that it resolves, keeps it, tells the wallet
// application, and returns the one sentence for the user. Blocks for as long as the network takes; worker threads only.
std::wstring publish_sentence(const SiteSettings& settings);
