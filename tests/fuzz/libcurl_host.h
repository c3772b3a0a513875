// The second opinion on a URL: libcurl's, which is what connects.
#pragma once

#include "net/url_host.h"
#include "text/ascii.h"

// True when libcurl takes `url` to `host`, which is in lower case, or refuses it. An address in another form ("127.1")
// is the same host to it, written in full.
inline bool libcurl_agrees(const std::string& url, const std::string& host)
{
    const std::string seen = url_host(url);
    const bool is_address = seen.find_first_not_of("0123456789.") == std::string::npos && is_ascii_digit(host.front());
    return seen.empty() || seen == host || is_address;
}
