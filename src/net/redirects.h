// Redirects followed one exchange at a time, for requests whose rules depend on the host that they go to.
#pragma once

#include "net/http_exchange.h"

#include <chrono>
#include <functional>
#include <string>

// Describes the request to one of the hosts on the way; it must not ask for redirects to be followed.
using DescribeHop = std::function<HttpRequest(const std::string& url, std::chrono::milliseconds time_left)>;

// The reply at the end of the redirects that start at `url`. An error, in libcurl's words, after more than `most` of
// them or when `whole_time` is over.
HttpReply exchange_hop_by_hop(const std::string& url, int most, std::chrono::milliseconds whole_time,
                              const DescribeHop& describe);
