#include "wallet_bridge/connect.h"

#include "platform/environment.h"
#include "platform/wallet_app.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/connect_files.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/wallet_events.h"
#include "wallet_bridge/wallet_identity.h"
#include "wallet_bridge/wallet_registry.h"

#include <mutex>

namespace {

constexpr char kSuccess[] = "success";
constexpr int kPolls = 120;
constexpr std::chrono::milliseconds kBetweenPolls{500};

std::string failed(const char* message)
{
    emit_event("error", message);
    return message;
}

bool is_connected()
{
    const std::scoped_lock lock(wallet_state_mutex());
    if (bound_wallet_id().empty() || !load_wallet()) return false;
    refresh_identity();
    return true;
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

std::string load_approved_wallet()
{
    const std::scoped_lock lock(wallet_state_mutex());
    if (!load_wallet()) {
        return failed(is_wallet_locked() ? "error: This wallet is locked. Open it in Vaultry."
                                         : "error: approved, but the wallet would not load.");
    }
    refresh_identity();
    emit_log("Connected to Vaultry wallet " + wallet_display_name(bound_wallet_id()) + "\n");
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
    const std::scoped_lock lock(wallet_state_mutex());
    unbind_wallet();
    forget_wallet();
    emit_event("status");
    emit_log("This app is no longer connected to a Vaultry wallet.\n");
    return kSuccess;
}
