#include "update/update_check.h"

#include "build_values.h"
#include "update/build_number.h"

HttpRequest page_request(const std::string& url)
{
    HttpRequest request;
    request.url = url;
    request.user_agent = kBrassletAgent;
    request.connect_timeout = std::chrono::seconds(8);
    request.transfer_timeout = std::chrono::seconds(15);
    request.redirects = 5;
    return request;
}

std::int32_t build_in_reply(const HttpReply& reply)
{
    if (!reply.error.empty() || reply.status < 200 || reply.status > 399) return kNoBuild;
    return build_on_page(reply.body);
}

std::int32_t find_newest_build(const std::string& url)
{
    return build_in_reply(exchange(page_request(url)));
}
