#include "plugin/package.h"

#include "platform/files.h"
#include "plugin/zip_file.h"
#include "wallet_bridge/data_directory.h"

std::string plugin_zip_path()
{
    const std::string folder = data_directory() + "/payname";
    create_folders(folder);
    return folder + "/brasslet.zip";
}

bool write_plugin_zip(const std::string& path, std::string_view plugin)
{
    const std::string temporary = path + ".tmp";
    if (write_file(temporary, stored_zip("brasslet/brasslet.php", plugin)) && replace_file(temporary, path))
        return true;
    remove_file(temporary);
    return false;
}
