// Paymail discovery (bsvalias): the host that answers for a domain, the requests for its documents, and the capability
// URLs in them.
#pragma once

#include "net/http_exchange.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

// The host of a domain's paymail service by its SRV record "_bsvalias._tcp." (bsvalias host discovery, RFC 2782): the
// target on port 443 with the lowest priority, in lower case without trailing dots; the last one of several with that
// priority. Weights are not used. Empty when no record has a valid host.
std::string find_srv_host(const std::string& domain);

// Asked before each request: how long it may take with its redirects, or nothing when it shall not be sent any more.
using RequestTime = std::function<std::optional<std::chrono::milliseconds>()>;

// The most that a request may take, and what it may take when nobody waits for several of them.
inline constexpr std::chrono::milliseconds kRequestTime = std::chrono::seconds(12);
inline std::optional<std::chrono::milliseconds> whole_request_time()
{
    return kRequestTime;
}

inline constexpr char kNotSent[] = "not sent";

// GET of a discovery document or of a URL in it. Succeeds for a status of 200 to 299, after at most 30 redirects and
// within its time. Otherwise the reply's error is libcurl's text, "HTTP " and the status, kNoCurlHandle, or kNotSent.
// Certificates are checked unless the host is exactly "localhost" or "127.0.0.1", where the user may run a site.
[[nodiscard]] HttpReply discovery_get(const std::string& url, const RequestTime& time = whole_request_time);

// The request of discovery_get for its URL or for one that a redirect led to.
HttpRequest discovery_request(const std::string& url, std::chrono::milliseconds time_left);

// `url_template` with every "{alias}" and then every "{domain.tld}" replaced, including those that a replacement
// completes. `alias` and `domain` contain no braces.
std::string fill_template(std::string_view url_template, std::string_view alias, std::string_view domain);

// True when `url` is https and its authority is exactly `host`: no user, no port, no other case.
bool url_is_on_host(std::string_view url, std::string_view host);

struct Payname {
    std::string alias;
    std::string domain;
};

// What a domain's paymail service offers.
struct Discovery {
    std::string host;             // that answered
    nlohmann::json capabilities;  // an object
};

// Asks the host of the domain's SRV record, then the domain itself, for the discovery document. Empty when neither
// answers; without capabilities when the document is malformed.
[[nodiscard]] std::optional<Discovery> discover(const std::string& domain,
                                                const RequestTime& time = whole_request_time);

// The filled-in URL of the capability `key` (bsvalias capability discovery). Empty unless it is on the host that
// answered or on the domain itself.
std::string capability_url(const Discovery& discovery, const char* key, const Payname& payname);
