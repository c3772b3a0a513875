// For the tests, of which many run in one process.
#pragma once

// Makes this room's process-wide state what it is at the start: no wallet is bound or loaded, nobody observes. No other
// thread may be in the room meanwhile.
void start_wallet_state_afresh();
