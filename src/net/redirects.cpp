// The redirects of http_exchange.h. Not in http_exchange.cpp: the fuzz targets replace exchange() when they are linked,
// and test this code with it.
#include "net/http_exchange.h"

#include <curl/curl.h>

#include <algorithm>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// At least 1 ms: 0 would mean no limit. libcurl then reports the timeout.
milliseconds time_until(Clock::time_point end)
{
    return std::max(std::chrono::duration_cast<milliseconds>(end - Clock::now()), milliseconds(1));
}

}  // namespace

HttpReply exchange_hop_by_hop(const std::string& url, const RedirectRules& rules, const DescribeHop& describe)
{
    const Clock::time_point end = Clock::now() + rules.whole_time;
    HttpReply reply = exchange(describe(url, time_until(end)));
    for (int redirects = 0; reply.error.empty() && !reply.redirect_url.empty() && rules.follows(reply); ++redirects) {
        if (redirects == rules.most) {
            reply.error = curl_easy_strerror(CURLE_TOO_MANY_REDIRECTS);
            return reply;
        }
        reply = exchange(describe(reply.redirect_url, time_until(end)));
    }
    return reply;
}
