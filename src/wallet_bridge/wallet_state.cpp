#include "wallet_bridge/wallet_state.h"

#include "wallet_bridge/afresh.h"

WalletState& wallet_state()
{
    static auto* const state = new WalletState;
    return *state;
}

HeldWallet hold_wallet()
{
    return wallet_state().wallet.hold();
}

void forget_known_files()
{
    wallet_state().house_labels.set({});
    wallet_state().listed_name.set({});
}

void start_wallet_state_afresh()
{
    wallet_state().wallet.set({});
    forget_known_files();
    wallet_state().binding.set({});
    wallet_state().sinks.set({});
}
