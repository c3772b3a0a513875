// JSON posts to public services, with the wallet application's user agent.
#pragma once

#include "net/http_exchange.h"

#include <chrono>
#include <functional>
#include <string>

inline constexpr char kWalletAgent[] = "Corvane-Vaultry/0.1";

using Pause = std::function<void(std::chrono::milliseconds)>;

void sleep_for(std::chrono::milliseconds time);  // on the calling thread

struct JsonPost {
    std::string url;
    std::string body;
    std::chrono::milliseconds timeout;  // of one attempt
    int attempts = 1;                   // at most, while the service answers 429
};

// The request that post_json sends. Certificates are always checked, redirects never followed.
[[nodiscard]] HttpRequest json_post(const JsonPost& post);

// Sends `post`, again after 429: the first pause is 400 ms, each next one twice as long. Succeeds for a status of 200
// to 299; otherwise the reply's error is one line for the user: libcurl's text for a failed transfer, or
// service_error() of the last attempt. Status and body are those of the last attempt.
[[nodiscard]] HttpReply post_json(const JsonPost& post, const Pause& pause = sleep_for);

// The error line for a reply of `status` and `body`.
std::string service_error(std::int32_t status, const std::string& body);
