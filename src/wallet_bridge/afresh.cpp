#include "wallet_bridge/afresh.h"

#include "wallet_bridge/binding.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/wallet_events.h"

void start_wallet_state_afresh()
{
    forget_binding();
    set_event_sink({});
    set_log_sink({});
    const std::scoped_lock lock(wallet_state_mutex());
    forget_wallet();
}
