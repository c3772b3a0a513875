// The two files of the connect handshake, in "/connect" of the data directory: the request that this program writes and
// the reply of the wallet application. Neither is deleted here; the wallet application clears them away.
#pragma once

#include <string>

// The id of the request that was written; empty before bind_at_startup has run and when the file cannot be written.
std::string write_connect_request();

enum class ReplyState {
    pending,   // no reply yet
    approved,  // the wallet that the reply names, if it names one, is bound now
    denied,    // everything else: a refusal, or a reply that cannot be read or is malformed
};

ReplyState read_connect_reply(const std::string& request_id);
