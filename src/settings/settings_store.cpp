#include "settings/settings_store.h"

#include "platform/files.h"
#include "text/json.h"
#include "wallet_bridge/shared_files.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

using nlohmann::json;

enum class FileState { missing, unreadable, damaged, whole };

struct SettingsFile {
    FileState state = FileState::missing;
    json document;  // an object when the file holds one, also when it is damaged; otherwise null
};

// The string member `key`, "" when it is missing. Empty optional when it is not a string.
std::optional<std::string> text_or_nothing(const json& document, const char* key)
{
    const auto member = document.find(key);
    if (member == document.end()) return std::string();
    if (!member->is_string()) return std::nullopt;
    return member->get<std::string>();
}

bool has_its_members_as_texts(const json& document)
{
    constexpr std::array kMembers = {"alias", "pass", "site", "user"};
    return std::ranges::all_of(kMembers, [&](const char* key) { return text_or_nothing(document, key).has_value(); });
}

// `text`: the file's bytes, or empty when it could not be read.
SettingsFile settings_file(const std::optional<std::string>& text)
{
    if (!text)
        return {file_status(settings_path()) == FileStatus::missing ? FileState::missing : FileState::unreadable, {}};
    json document = parse_first_exact_json(*text);
    if (!document.is_object()) return {FileState::damaged, {}};
    return {has_its_members_as_texts(document) ? FileState::whole : FileState::damaged, std::move(document)};
}

// Takes the members of the file, up to the first that is not a string.
void take(const json& document, SiteSettings& settings)
{
    if (!document.is_object()) return;
    const auto site = text_or_nothing(document, "site");
    if (!site) return;
    settings.site = *site;
    const auto user = text_or_nothing(document, "user");
    if (!user) return;
    settings.user = *user;
    const auto pass = text_or_nothing(document, "pass");
    if (!pass) return;
    settings.pass = StoredPassword::of_file(*pass);
}

// Fills what is empty in settings that could not be read before from the file.
void complete(const json& document, SiteSettings& settings)
{
    SiteSettings from_file;
    take(document, from_file);
    if (settings.site.empty()) settings.site = from_file.site;
    if (settings.user.empty()) settings.user = from_file.user;
    if (!settings.pass.is_stored()) settings.pass = from_file.pass;
    settings.wait_for_file = false;
}

SettingsNotice notice_of(const SettingsFile& file, const SiteSettings& settings)
{
    if (file.state == FileState::unreadable) return SettingsNotice::unreadable;
    if (file.state == FileState::damaged) return SettingsNotice::damaged;
    const bool is_locked = settings.pass.is_stored() && !settings.pass.opens();
    return is_locked ? SettingsNotice::password_is_locked : SettingsNotice::none;
}

bool is_empty(const SiteSettings& settings, const std::string& name)
{
    return settings.site.empty() && settings.user.empty() && !settings.pass.is_stored() && name.empty();
}

}  // namespace

SettingsNotice load_settings(SiteSettings& settings)
{
    create_folders(parent_folder(settings_path()));
    const SettingsFile file = settings_file(read_file(settings_path()));
    settings.wait_for_file = file.state == FileState::unreadable;
    take(file.document, settings);
    return notice_of(file, settings);
}

SettingsNotice load_what_waits(SiteSettings& settings)
{
    if (!settings.wait_for_file) return SettingsNotice::none;
    const SettingsFile file = settings_file(read_file(settings_path()));
    if (file.state != FileState::unreadable) complete(file.document, settings);
    return notice_of(file, settings);
}

SettingsNotice save_settings(SiteSettings& settings, const std::string& name_field)
{
    SettingsFile file = settings_file(read_held_file(settings_path()));
    if (file.state == FileState::unreadable) return SettingsNotice::not_saved;
    std::string name = name_field;
    SettingsNotice late = SettingsNotice::none;
    if (settings.wait_for_file) {
        complete(file.document, settings);
        if (name.empty()) name = text_member(file.document, "alias");
        late = notice_of(file, settings);
    }
    if (file.state == FileState::damaged) {
        if (is_empty(settings, name)) return late;
        if (!rename_file(settings_path(), damaged_path(settings_path()))) return SettingsNotice::not_saved;
    }
    json document = file.state == FileState::whole ? std::move(file.document) : json::object();
    document["alias"] = name;
    document["pass"] = settings.pass.text_for_file();
    document["site"] = settings.site;
    document["user"] = settings.user;
    create_folders(parent_folder(settings_path()));
    update_in_place(settings_path(), pretty_exact_json(document));
    return late;
}

std::string saved_name()
{
    return text_member(settings_file(read_file(settings_path())).document, "alias");
}
