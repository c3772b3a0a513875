// The sibling wallet application, Vaultry, as it can be reached on this desktop.
#pragma once

// Tells Vaultry that the paynames on this PC changed: posts the registered message "Corvane.PaynameAccepted" to its
// window. Nothing happens when Vaultry is not running, and nobody waits for it.
void notify_wallet_app();
