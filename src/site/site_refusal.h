// What the site's reply says to the user.
#pragma once

#include "net/http_exchange.h"

#include <string>

// The "message" of a WordPress error, as it stands in a JSON object; otherwise empty. UTF-8.
std::string reply_message(const std::string& body);

// The sentence for a site that sends a login on to where it does not go; empty for every other reply.
std::wstring sent_on_message(const HttpReply& reply);

// The sentence for a request that was refused (401 or 403); empty for every other status.
std::wstring refusal_message(const HttpReply& reply);
