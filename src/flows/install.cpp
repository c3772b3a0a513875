#include "flows/install.h"

#include "platform/environment.h"
#include "plugin/package.h"
#include "site/site_address.h"
#include "site/site_reply.h"
#include "wallet_bridge/shared_files.h"

namespace {

constexpr int kPluginResource = 2;
constexpr std::size_t kSmallestPlugin = 16;  // bytes; a smaller resource is not the plugin

bool save_package()
{
    const std::string_view plugin = load_resource(kPluginResource);
    return plugin.size() >= kSmallestPlugin && write_plugin_zip(plugin_package_path(), plugin);
}

}  // namespace

std::string install_sentence(const SiteSettings& settings, const std::function<bool()>& show_package)
{
    std::string typed_site = settings.site;
    const SiteAddress site = normalise_site(typed_site);
    if (!site.ok) return "Add the site in settings.";

    const SitePlugin plugin = plugin_on_site(site.base).plugin;
    if (plugin == SitePlugin::current) return "Plugin is on the site.";
    if (!save_package()) return "Could not write the plugin.";
    if (!show_package()) return "The zip is saved, and the folder did not open.";
    if (plugin == SitePlugin::outdated)
        return "Brasslet.zip is selected in the folder that opened. Upload it over the plugin already there. This one "
               "sends the login in the form.";
    return "Brasslet.zip is selected in the folder that opened. Upload it, activate it, then press Install plugin "
           "again.";
}
