// Property: what the settings file gives survives a save and a load, loading changes nothing on the disk, a file whose
// first value is no JSON object gives nothing, and a save loses nothing: what it does not know in a good file stays
// with its digits, and a damaged file stays whole, where it is or beside.
#include "settings/settings_store.h"

#include "fuzz/data_folder.h"
#include "fuzz/target.h"
#include "text/json.h"

#include <algorithm>

namespace {

constexpr char kFile[] = "payname/ui.json";

bool is_same(const SiteSettings& one, const SiteSettings& other)
{
    return one.site == other.site && one.user == other.user && one.pass == other.pass && one.alias == other.alias;
}

SiteSettings settings_before()
{
    SiteSettings settings;
    settings.site = "before";
    settings.user = "before";
    settings.pass = StoredPassword(SecretText("before"));
    settings.alias = "before";
    return settings;
}

// Of the first object in `text`, written out with every digit; empty when the program would not take it as it stands.
std::string foreign_members(std::string_view text)
{
    nlohmann::json document = parse_first_exact_json(text);
    if (!document.is_object()) return {};
    for (const char* own : {"alias", "pass", "site", "user"}) {
        if (document.contains(own) && !document[own].is_string()) return {};
        document.erase(own);
    }
    return pretty_exact_json(document);
}

bool is_on_disk(std::string_view bytes)
{
    const FilesOnDisk files = files_on_disk();
    return std::ranges::any_of(files, [&](const auto& file) { return file.second == bytes; });
}

void check(std::string_view bytes)
{
    empty_data_folder();
    put_file(kFile, bytes);
    const FilesOnDisk before = files_on_disk();
    SiteSettings taken = settings_before();
    const SettingsNotice notice = load_settings(taken);
    const std::string name = saved_name();
    require(files_on_disk() == before, "loading changes nothing on the disk");
    require(taken.alias == "before", "the name of the last flow is not the file's");
    if (!parse_first_exact_json(bytes).is_object())
        require(is_same(taken, settings_before()) && name.empty(), "a file that is no object gives nothing");

    SiteSettings loaded;
    require(load_settings(loaded) == notice, "the same file has the same notice");
    require(save_settings(loaded, name) != SettingsNotice::not_saved, "what was loaded can be saved");
    const std::string text = files_on_disk().at(kFile);
    if (const std::string foreign = foreign_members(bytes); !foreign.empty())
        require(foreign_members(text) == foreign, "what the program does not know stays as it stands");
    else
        require(is_on_disk(bytes), "a damaged file is kept");
    SiteSettings again;
    const SettingsNotice of_saved = load_settings(again);
    require(of_saved == notice || notice == SettingsNotice::damaged, "a save leaves a file no worse than it was");
    require(is_same(again, loaded) && saved_name() == name, "the settings survive a save and a load");
    require(save_settings(again, name) != SettingsNotice::not_saved, "and once more");
    require(files_on_disk().at(kFile) == text, "saving them again changes nothing");
}

const FuzzTarget target("settings", check);

}  // namespace
