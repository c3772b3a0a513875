// Property: what the settings file gives survives a save and a load, loading changes nothing on the disk, and a file
// whose first value is no JSON object gives nothing.
#include "settings/settings_store.h"

#include "fuzz/data_folder.h"
#include "fuzz/target.h"
#include "text/json.h"

namespace {

constexpr char kFile[] = "payname/ui.json";

bool is_same(const SiteSettings& one, const SiteSettings& other)
{
    return one.site == other.site && one.user == other.user && one.pass.text() == other.pass.text() &&
           one.alias == other.alias;
}

SiteSettings settings_before()
{
    SiteSettings settings;
    settings.site = "before";
    settings.user = "before";
    settings.pass = SecretText("before");
    settings.alias = "before";
    return settings;
}

void check(std::string_view bytes)
{
    empty_data_folder();
    put_file(kFile, bytes);
    const FilesOnDisk before = files_on_disk();
    SiteSettings taken = settings_before();
    load_settings(taken);
    const std::string name = saved_name();
    require(files_on_disk() == before, "loading changes nothing on the disk");
    require(taken.alias == "before", "the name of the last flow is not the file's");
    if (!parse_first_json(bytes).is_object())
        require(is_same(taken, settings_before()) && name.empty(), "a file that is no object gives nothing");

    SiteSettings loaded;
    load_settings(loaded);
    save_settings(loaded, name);
    const std::string text = files_on_disk().at(kFile);
    SiteSettings again;
    load_settings(again);
    require(is_same(again, loaded) && saved_name() == name, "the settings survive a save and a load");
    save_settings(again, name);
    require(files_on_disk().at(kFile) == text, "saving them again changes nothing");
}

const FuzzTarget target("settings", check);

}  // namespace
