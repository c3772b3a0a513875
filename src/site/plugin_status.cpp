#include "site/plugin_status.h"

#include "net/url_host.h"
#include "site/site_request.h"
#include "text/json.h"

PluginStatus plugin_on_site(const std::string& base)
{
    return plugin_in(site_request("GET", base + "/wp-json/brasslet/v1/status", {}, {}, {}));
}

PluginStatus plugin_in(const HttpReply& status_reply)
{
    if (!status_reply.is_success()) return {};
    const std::string host = ascii_host(text_member(parse_json(status_reply.body), "host"));
    if (status_reply.body.find(R"("login":"names")") != std::string::npos) return {SitePlugin::current, host};
    const bool is_plugin = status_reply.body.find(R"("ok")") != std::string::npos;
    return {is_plugin ? SitePlugin::outdated : SitePlugin::none, host};
}
