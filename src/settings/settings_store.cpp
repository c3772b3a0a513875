#include "settings/settings_store.h"

#include "platform/files.h"
#include "platform/user_protection.h"
#include "text/base64.h"
#include "text/json.h"
#include "wallet_bridge/data_directory.h"

namespace {

using nlohmann::json;

json read_document()
{
    return parse_first_json(read_file(settings_folder() + "/ui.json").value_or(""));
}

// The member, empty when it is absent; nothing when it is no text.
std::optional<std::string> text_or_nothing(const json& document, const char* key)
{
    const auto member = document.find(key);
    if (member == document.end()) return std::string();
    if (!member->is_string()) return std::nullopt;
    return member->get<std::string>();
}

SecretText unprotected(const std::string& bytes)
{
    if (bytes.empty()) return {};
    return unprotect_for_user(bytes).value_or(SecretText());
}

// Protecting the same password gives other bytes every time. The form that the file holds already serves as well, and
// leaves the file as it is.
std::string protected_form(const SecretText& password)
{
    if (password.empty()) return {};
    const std::string kept = base64_decode(text_member(read_document(), "pass"));
    if (unprotected(kept).text() == password.text()) return base64_encode(kept);
    return base64_encode(protect_for_user(password).value_or(""));
}

}  // namespace

std::string settings_folder()
{
    std::string folder = data_directory() + "/payname";
    create_folders(folder);
    return folder;
}

void load_settings(SiteSettings& settings)
{
    const json document = read_document();
    if (!document.is_object()) return;
    const auto site = text_or_nothing(document, "site");
    if (!site) return;
    settings.site = *site;
    const auto user = text_or_nothing(document, "user");
    if (!user) return;
    settings.user = *user;
    const auto pass = text_or_nothing(document, "pass");
    if (!pass) return;
    settings.pass = unprotected(base64_decode(*pass));
}

void save_settings(const SiteSettings& settings, const std::string& name_field)
{
    const json document = {{"alias", name_field},
                           {"pass", protected_form(settings.pass)},
                           {"site", settings.site},
                           {"user", settings.user}};
    update_in_place(settings_folder() + "/ui.json", pretty_json(document));
}

std::string saved_name()
{
    return text_member(read_document(), "alias");
}
