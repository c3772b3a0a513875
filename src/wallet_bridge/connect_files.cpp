#include "wallet_bridge/connect_files.h"

#include "platform/files.h"
#include "text/clock.h"
#include "text/json.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/data_directory.h"

#include <optional>

namespace {

using nlohmann::json;

std::string connect_folder()
{
    return data_directory() + "/connect";
}

// What an approval names: the wallet's id, empty when it names none. Nothing when the reply is no approval.
std::optional<std::string> approved_wallet_id(const json& reply)
{
    if (!reply.is_object()) return std::nullopt;
    const auto ok = reply.find("ok");
    if (ok == reply.end() || !ok->is_boolean() || !ok->get<bool>()) return std::nullopt;
    const auto id = reply.find("wallet_id");
    if (id == reply.end()) return std::string();
    if (!id->is_string()) return std::nullopt;
    return id->get<std::string>();
}

}  // namespace

std::string write_connect_request()
{
    const WalletBinding binding = wallet_binding();
    if (!binding.is_initialised) return {};
    const std::int64_t now = milliseconds_since_epoch();
    const std::string id = std::to_string(now);
    const json request = {{"app", binding.app}, {"id", id}, {"instance", binding.instance}, {"ts", now / 1000}};

    create_folders(connect_folder());
    const bool is_written = write_file(connect_folder() + "/" + id + ".req.json", pretty_json(request));
    return is_written ? id : std::string();
}

ReplyState read_connect_reply(const std::string& request_id)
{
    if (request_id.empty()) return ReplyState::denied;
    const std::string path = connect_folder() + "/" + request_id + ".rep.json";
    if (file_status(path) != FileStatus::exists) return ReplyState::pending;

    const auto wallet_id = approved_wallet_id(parse_json(read_file(path).value_or("")));
    if (!wallet_id) return ReplyState::denied;
    bind_wallet(*wallet_id);
    return ReplyState::approved;
}
