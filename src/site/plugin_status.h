// Which plugin answers on the user's site.
#pragma once

#include "net/http_exchange.h"

#include <string>

enum class SitePlugin {
    none,      // the site could not be asked, or it has no plugin
    outdated,  // one from before the login travelled in the body
    current,
};

// Asks the site at `base` (of a SiteAddress), without credentials. Blocks until the exchange ends; worker threads only.
SitePlugin plugin_on_site(const std::string& base);

// What the reply of the status route says.
SitePlugin plugin_in(const HttpReply& status_reply);
