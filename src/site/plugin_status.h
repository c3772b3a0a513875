// Which plugin answers on the user's site.
#pragma once

#include "net/http_exchange.h"

#include <string>

enum class SitePlugin {
    none,      // the site could not be asked, or it has no plugin
    outdated,  // one from before the login travelled in the body
    current,
};

struct PluginStatus {
    SitePlugin plugin = SitePlugin::none;
    std::string host;  // that the site's names belong to, in its ASCII form; empty when the site does not say
};

// Asks the site at `base` (of a SiteAddress), without credentials. Blocks until the exchange ends; worker threads only.
PluginStatus plugin_on_site(const std::string& base);

// What the reply of the status route says.
PluginStatus plugin_in(const HttpReply& status_reply);
