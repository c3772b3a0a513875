// The client for JSON posts to public services. It identifies itself as the wallet application.
#pragma once

#include "net/http_exchange.h"

#include <chrono>
#include <functional>
#include <string>

inline constexpr char kWalletAgent[] = "Corvane-Vaultry/0.1";

using Pause = std::function<void(std::chrono::milliseconds)>;

void sleep_for(std::chrono::milliseconds time);  // on the calling thread

// The request that post_json sends: certificates are always checked and redirects never followed.
HttpRequest json_post(const std::string& url, const std::string& body, std::chrono::seconds timeout);

// Posts `body` to `url`, at most `attempts` times while the service answers 429, with a pause of 400 ms that doubles in
// between. Succeeds for a status of 200 to 299; otherwise the reply's error is one line for the user: libcurl's text
// for a failed transfer, or one made of the last status and body. The body is that of the last attempt.
HttpReply post_json(const std::string& url, const std::string& body, std::chrono::seconds timeout, int attempts,
                    const Pause& pause = sleep_for);

// The error line for a reply of `status` and `body`.
std::string service_error(std::int32_t status, const std::string& body);
