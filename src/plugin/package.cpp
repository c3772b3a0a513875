#include "plugin/package.h"

#include "platform/explorer.h"
#include "platform/files.h"
#include "plugin/zip_file.h"
#include "site/site_address.h"
#include "wallet_bridge/shared_files.h"

std::string plugin_zip_path()
{
    std::string path = plugin_package_path();
    create_folders(parent_folder(path));
    return path;
}

bool write_plugin_zip(const std::string& path, std::string_view plugin)
{
    const std::string temporary = path + ".tmp";
    if (write_file(temporary, stored_zip("brasslet/brasslet.php", plugin)) && replace_file(temporary, path))
        return true;
    remove_file(temporary);
    return false;
}

void show_plugin_upload(std::string site, WindowHandle owner)
{
    show_in_explorer(plugin_zip_path(), owner);
    const SiteAddress address = normalise_site(site);
    if (address.ok) open_page(address.base + "/wp-admin/plugin-install.php?tab=upload", owner);
}
