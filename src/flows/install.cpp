#include "flows/install.h"

#include "platform/environment.h"
#include "plugin/package.h"
#include "site/plugin_status.h"
#include "site/site_address.h"

namespace {

constexpr int kPluginResource = 2;
constexpr std::size_t kSmallestPlugin = 16;  // bytes; what is smaller is no plugin

bool save_package()
{
    const std::string_view plugin = load_resource(kPluginResource);
    return plugin.size() >= kSmallestPlugin && write_plugin_zip(plugin_zip_path(), plugin);
}

}  // namespace

std::wstring install_sentence(const SiteSettings& settings, const std::function<bool()>& show_package)
{
    std::string typed_site = settings.site;
    const SiteAddress site = normalise_site(typed_site);
    if (!site.ok) return L"Add the site in settings.";

    const SitePlugin plugin = plugin_on_site(site.base).plugin;
    if (plugin == SitePlugin::current) return L"Plugin is on the site.";
    if (!save_package()) return L"Could not write the plugin.";
    if (!show_package()) return L"The zip is saved, and the folder did not open.";
    if (plugin == SitePlugin::outdated)
        return L"Brasslet.zip is selected in the folder that opened. Upload it over the plugin already there. This one "
               L"sends the login in the form.";
    return L"Brasslet.zip is selected in the folder that opened. Upload it, activate it, then press Install plugin "
           L"again.";
}
