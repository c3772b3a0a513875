// The sibling wallet application, Vaultry, as it can be reached on this desktop.
#pragma once

// Tells Vaultry that the paynames on this PC changed: posts the registered message "Corvane.PaynameAccepted" to its
// window. Nothing happens when Vaultry is not running, and nobody waits for it.
void notify_wallet_app();

// Brings Vaultry's window forward, restored when it was minimised. When there is none, starts "Vaultry.exe" from this
// program's folder, or else from the folder above. False when neither can be done. Takes as long as Windows and Vaultry
// do: not for the user-interface thread.
bool raise_wallet_app();
