// Redirects followed one exchange at a time, for requests whose rules depend on the host that they go to.
//
// libcurl, left to follow a redirect itself, drops the body of a POST after a 301 or 302 and takes headers that it was
// given along to every host. Here every hop is a request of its own, described anew, and none is made that its caller
// did not agree to.
#pragma once

#include "net/http_exchange.h"

#include <chrono>
#include <functional>
#include <string>

// Describes the request to one of the hosts on the way; it must not ask for redirects to be followed.
using DescribeHop = std::function<HttpRequest(const std::string& url, std::chrono::milliseconds time_left)>;

// Says whether the redirect that `reply` asks for, to its redirect_url, is followed.
using FollowsRedirect = std::function<bool(const HttpReply& reply)>;

inline bool every_redirect(const HttpReply&)
{
    return true;
}

// The reply at the end of the redirects that start at `url`; that is the redirect itself, with its redirect_url, where
// one is not followed. An error, in libcurl's words, after more than `most` of them or when `whole_time` is over.
HttpReply exchange_hop_by_hop(const std::string& url, int most, std::chrono::milliseconds whole_time,
                              const DescribeHop& describe, const FollowsRedirect& follows = every_redirect);
