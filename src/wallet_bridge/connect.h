// Connecting this program to a wallet, which only the wallet application's user can grant, and letting go of it again.
#pragma once

#include <string>

// Asks Vaultry for a wallet, waits for its user's answer, then binds and loads the approved wallet. Returns "success",
// also when a wallet is bound already and loads, else a message that begins with "error: ". Takes up to a minute, for
// which no lock is held: for a worker thread.
std::string connect_wallet();

// Deletes the bind record and wipes the loaded wallet. Always "success".
std::string disconnect_wallet();
