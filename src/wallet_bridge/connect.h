// Connecting this program to a wallet, which only the wallet application's user can grant, and letting go of it again.
#pragma once

#include <string>

// Asks Vaultry for a wallet, waits for its user's answer, then binds and loads the approved wallet. Returns "success",
// also when a wallet is bound already and loads, else a message that begins with "error: ". Takes up to a minute, for
// which no lock is held: for a worker thread.
[[nodiscard]] std::string connect_wallet();

// Deletes the bind record and wipes the loaded wallet. Always "success".
std::string disconnect_wallet();

// The two files of the handshake: the request that this program writes and the reply of the wallet application. Neither
// is deleted here; the wallet application clears them away.

// The id of the request that was written; empty before bind_at_startup has run and when the file cannot be written.
[[nodiscard]] std::string write_connect_request();

enum class ReplyState {
    pending,   // no reply yet
    approved,  // the wallet that the reply names, if it names one, is bound now
    denied,    // everything else: a refusal, or a reply that cannot be read or is malformed
};

[[nodiscard]] ReplyState read_connect_reply(const std::string& request_id);
