#include "site/plugin_status.h"

#include "site/site_request.h"

SitePlugin plugin_on_site(const std::string& base)
{
    return plugin_in(site_request("GET", base + "/wp-json/brasslet/v1/status", {}, {}, {}));
}

SitePlugin plugin_in(const HttpReply& status_reply)
{
    if (!status_reply.is_success()) return SitePlugin::none;
    if (status_reply.body.find(R"("login":"names")") != std::string::npos) return SitePlugin::current;
    return status_reply.body.find(R"("ok")") != std::string::npos ? SitePlugin::outdated : SitePlugin::none;
}
