// Asks the maker's page for a newer build.
#pragma once

#include "net/http_exchange.h"

#include <cstdint>
#include <string>

// The request for the page at `url`: 8 seconds to connect, 15 in all, at most five redirects, all of them https.
HttpRequest page_request(const std::string& url);

// The build that the reply's page announces; kNoBuild after a failed exchange or a status outside of 200 to 399.
std::int32_t build_in_reply(const HttpReply& reply);

// Asks the page at `url`. Blocks until the exchange ends; worker threads only, while a CurlLifetime exists.
std::int32_t find_newest_build(const std::string& url);
