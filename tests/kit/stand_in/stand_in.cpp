#include "kit/stand_in/stand_in.h"

#include "platform/environment.h"
#include "platform/user_protection.h"
#include "platform/wallet_app.h"

#include <mutex>

StandIn& stand_in()
{
    static StandIn instance;
    return instance;
}

void tell_look(const std::string& path, FileLook look)
{
    if (stand_in().files.on_look) stand_in().files.on_look(path, look);
}

std::string local_app_data()
{
    return stand_in().local_app_data;
}

std::string executable_folder()
{
    return stand_in().executable_folder;
}

void enter_executable_folder() {}

std::vector<SrvRecord> query_srv(const std::string& name)
{
    static std::mutex mutex;
    {
        const std::scoped_lock lock(mutex);
        stand_in().srv_queries.push_back(name);
    }
    if (stand_in().during_srv_query) stand_in().during_srv_query();
    return stand_in().srv_records;
}

void notify_wallet_app()
{
    ++stand_in().wallet_app_notices;
}

bool raise_wallet_app()
{
    ++stand_in().wallet_app_raises;
    return stand_in().wallet_app_is_there;
}

void pause(std::chrono::milliseconds duration)
{
    stand_in().pauses.push_back(duration);
    if (stand_in().during_pause) stand_in().during_pause();
}

std::string_view load_resource(int)
{
    return stand_in().resource;
}

namespace {

constexpr std::string_view kMark = "protected by the stand-in:";

std::string turned(std::string_view text)
{
    std::string other(text);
    for (char& c : other)
        c = static_cast<char>(c ^ 0x55);
    return other;
}

}  // namespace

std::optional<std::string> protect_for_user(const SecretText& secret)
{
    if (!stand_in().protection_works) return std::nullopt;
    return std::string(kMark) + turned(secret.text());
}

std::optional<SecretText> unprotect_for_user(std::string_view bytes)
{
    if (!bytes.starts_with(kMark)) return std::nullopt;
    return SecretText(turned(bytes.substr(kMark.size())));
}
