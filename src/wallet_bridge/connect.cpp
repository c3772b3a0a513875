#include "wallet_bridge/connect.h"

#include "platform/environment.h"
#include "platform/files.h"
#include "platform/wallet_app.h"
#include "text/clock.h"
#include "text/json.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/shared_files.h"
#include "wallet_bridge/wallet_identity.h"
#include "wallet_bridge/wallet_list.h"

#include <optional>

namespace {

using nlohmann::json;

constexpr char kSuccess[] = "success";
constexpr int kPolls = 120;
constexpr std::chrono::milliseconds kBetweenPolls{500};

std::string failed(const char* message)
{
    emit_event("error", message);
    return message;
}

// What an approval names: the wallet's id, empty when it names none. Empty optional when the reply does not approve.
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

// Pending: nobody answered in time. The polls are counted, so a PC that sleeps meanwhile does not end the wait.
ReplyState awaited_reply(const std::string& request_id)
{
    for (int polls = 0; polls < kPolls; ++polls) {
        pause(kBetweenPolls);
        const ReplyState reply = read_connect_reply(request_id);
        if (reply != ReplyState::pending) return reply;
    }
    return ReplyState::pending;
}

// What a load of the wallet with that id came to. The events wait until the wallet state is no longer locked.
struct Connected {
    bool is_loaded = false;
    bool is_locked = false;     // why it is not loaded
    std::string house_paymail;  // to announce, unless empty
    std::string name;           // in the wallet list
};

Connected connect_to(const std::string& wallet_id)
{
    HeldWallet held = hold_wallet();
    Connected connected;
    connected.is_loaded = load_wallet(held, wallet_id);
    if (connected.is_loaded) {
        connected.house_paymail = refresh_identity(held);
        connected.name = wallet_display_name(wallet_id);
    } else {
        connected.is_locked = is_wallet_locked();
    }
    return connected;
}

bool is_connected()
{
    const std::string wallet_id = bound_wallet_id();
    if (wallet_id.empty()) return false;
    const Connected connected = connect_to(wallet_id);
    announce_house_paymail(connected.house_paymail);
    return connected.is_loaded;
}

std::string load_approved_wallet()
{
    const Connected connected = connect_to(bound_wallet_id());
    if (connected.is_locked) return failed("error: This wallet is locked. Open it in Vaultry.");
    if (!connected.is_loaded) return failed("error: approved, but the wallet would not load.");
    announce_house_paymail(connected.house_paymail);
    emit_log("Connected to Vaultry wallet " + connected.name + "\n");
    return kSuccess;
}

}  // namespace

std::string connect_wallet()
{
    if (!wallet_binding().is_initialised) return failed("error: connect is for apps, not the Vaultry vault.");
    if (is_connected()) return kSuccess;

    const std::string request_id = write_connect_request();
    if (request_id.empty()) return failed("error: could not write connect request.");
    raise_wallet_app();
    emit_event("connect-pending", "Approve the connect in Vaultry.");
    emit_log("Waiting for Vaultry to approve this app...\n");

    switch (awaited_reply(request_id)) {
    case ReplyState::approved:
        return load_approved_wallet();
    case ReplyState::denied:
        emit_event("connect-denied", "denied");
        return failed("error: connect denied in Vaultry.");
    case ReplyState::pending:
        break;
    }
    emit_event("connect-denied", "timeout");
    return failed("error: Vaultry did not approve in time. Open Vaultry.exe and try Connect again.");
}

std::string disconnect_wallet()
{
    {
        HeldWallet held = hold_wallet();
        unbind_wallet();
        forget_wallet(held);
        forget_known_files();  // they name the wallet
    }
    emit_event("status");
    emit_log("This app is no longer connected to a Vaultry wallet.\n");
    return kSuccess;
}

std::string write_connect_request()
{
    const WalletBinding binding = wallet_binding();
    if (!binding.is_initialised) return {};
    const std::int64_t now = milliseconds_since_epoch();
    const std::string id = std::to_string(now);
    const json request = {{"app", binding.app}, {"id", id}, {"instance", binding.instance}, {"ts", now / 1000}};

    const std::string path = connect_request_path(id);
    create_folders(parent_folder(path));
    return write_file(path, pretty_json(request)) ? id : std::string();
}

ReplyState read_connect_reply(const std::string& request_id)
{
    if (request_id.empty()) return ReplyState::denied;
    const std::string path = connect_reply_path(request_id);
    if (file_status(path) != FileStatus::exists) return ReplyState::pending;

    const auto wallet_id = approved_wallet_id(parse_json(read_file(path).value_or("")));
    if (!wallet_id) return ReplyState::denied;
    bind_wallet(*wallet_id);
    return ReplyState::approved;
}
