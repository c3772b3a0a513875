// HTTPS exchanges: one request with libcurl's own redirects, or a chain of redirects followed one request at a time.
// Only this folder uses libcurl.
#pragma once

#include "text/secret.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// libcurl's global state. Made once, by the user-interface thread before a worker runs, and destroyed by it at the end.
// Every copy that libcurl makes of a credential lies in memory that is wiped when it is freed (platform/wiping_heap.h).
class CurlLifetime {
public:
    CurlLifetime();
    CurlLifetime(const CurlLifetime&) = delete;
    CurlLifetime& operator=(const CurlLifetime&) = delete;
    ~CurlLifetime();

    [[nodiscard]] bool is_started() const { return m_is_started; }

private:
    bool m_is_started = false;
};

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
    bool pin_wallet_service = false;                // see pin_hosts() in net/curl_owners.h
};

inline constexpr std::size_t kLargestBody = 1'000'000;  // bytes; a longer body ends the exchange with an error
inline constexpr char kNoCurlHandle[] = "curl init failed";

// Sends the request and blocks until the exchange ends; any thread, while a CurlLifetime exists. On failure the error
// is libcurl's text for it (curl_easy_strerror), or kNoCurlHandle, and the body holds what was received so far.
[[nodiscard]] HttpReply exchange(const HttpRequest& request);

// Describes the request for one URL of a chain of redirects; its `redirects` must be 0.
using DescribeHop = std::function<HttpRequest(const std::string& url, std::chrono::milliseconds time_left)>;

// Whether to follow the redirect of `reply` to its redirect_url.
using FollowsRedirect = std::function<bool(const HttpReply& reply)>;

inline bool every_redirect(const HttpReply&)
{
    return true;
}

struct RedirectRules {
    int most;                              // redirects; one more is an error
    std::chrono::milliseconds whole_time;  // for the whole chain
    FollowsRedirect follows = every_redirect;
};

// Follows the redirects that start at `url` one request at a time, for requests that depend on the host they go to:
// libcurl, when it follows a redirect itself, drops the body of a POST after 301 and 302, and sends given headers to
// every host. Returns the last reply; the redirect itself, with its redirect_url, when the rules refuse it. The error
// is libcurl's text after too many redirects or when the time is over.
[[nodiscard]] HttpReply exchange_hop_by_hop(const std::string& url, const RedirectRules& rules,
                                            const DescribeHop& describe);
