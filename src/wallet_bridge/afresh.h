// A new beginning for what the process remembers.
#pragma once

// Forgets the binding, the loaded wallet (its secrets are wiped), what is known of the house labels and the wallet
// list, and the event sinks, so that the next call of bind_at_startup finds the process as a new one would be. For
// tests that share a process; files are not touched. No other thread may be using the wallet meanwhile.
void start_wallet_state_afresh();
