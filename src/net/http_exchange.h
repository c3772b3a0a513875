// One HTTPS exchange. This folder is the only place that owns a curl handle; what the program's requests differ in is
// said in an HttpRequest.
#pragma once

#include "text/secret.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

struct HttpReply {
    std::int32_t status = 0;   // of the last response received, also after a failure; 0 when there was none
    std::string body;          // as received, at most little more than kLargestBody bytes
    std::string error;         // empty on success; a reply that carries an error is never a success
    std::string redirect_url;  // where a redirect that was not followed points to, absolute, without user; else empty

    bool is_success() const { return error.empty() && status >= 200 && status <= 299; }
};

struct HttpRequest {
    std::string url;                  // any scheme but https ends in an error
    std::string method;               // empty: GET, or POST when there is a body
    std::vector<SecretText> headers;  // "Name: value", sent in this order after libcurl's own
    SecretText body;                  // empty: no body is sent; text without NUL bytes
    SecretText credentials;           // "user:password" for Basic authentication; empty: none are sent
    std::string user_agent;
    std::chrono::milliseconds connect_timeout{0};   // 0: libcurl's own
    std::chrono::milliseconds transfer_timeout{0};  // for everything, redirects included; 0: none
    long redirects = 0;                             // followed at most; 0: none is followed
    bool check_certificate = true;                  // false accepts any certificate of any name
    bool pin_wallet_service = false;                // see net/host_pin.h
};

inline constexpr std::size_t kLargestBody = 1'000'000;  // bytes; a longer body ends the exchange with an error
inline constexpr char kNoCurlHandle[] = "curl init failed";
inline constexpr char kBrassletAgent[] = "Brasslet/0.001";

// Sends the request and blocks until the exchange ends; any thread, while a CurlLifetime exists. On failure the error
// is libcurl's text for it (curl_easy_strerror), or kNoCurlHandle, and the body holds what was received so far.
HttpReply exchange(const HttpRequest& request);
