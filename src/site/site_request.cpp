#include "site/site_request.h"

#include "build_values.h"
#include "net/url_host.h"
#include "text/ascii.h"

#include <chrono>

namespace {

constexpr int kMostRedirects = 4;

// The temporary string is moved into the secret, which wipes it.
SecretText joined(const std::string& front, const std::string& back)
{
    return SecretText(front + back);
}

// After these statuses the request is repeated at the other URL. RFC 9110 allows a client to change a POST to a GET
// after 301 and 302; here the method stays. 303 means that the request has been carried out.
bool repeats_request(std::int32_t status)
{
    return status == 301 || status == 302 || status == 307 || status == 308;
}

// libcurl itself would send the header with the login, and after 307 and 308 the body, to any host.
HttpReply exchange_on_site(const HttpRequest& first)
{
    const auto describe = [&](const std::string& url, std::chrono::milliseconds time_left) {
        HttpRequest request = first;
        request.url = url;
        request.transfer_timeout = time_left;
        request.redirects = 0;
        return request;
    };
    const auto follows = [&](const HttpReply& reply) {
        return repeats_request(reply.status) && is_same_site(first.url, reply.redirect_url);
    };
    HttpReply reply = exchange_hop_by_hop(first.url, {kMostRedirects, first.transfer_timeout, follows}, describe);
    if (!reply.error.empty() || is_same_site(first.url, reply.redirect_url)) reply.redirect_url.clear();
    return reply;
}

}  // namespace

HttpRequest describe_site_request(const SiteRequest& request)
{
    HttpRequest described;
    described.url = request.url;
    described.method = request.method;
    described.headers.emplace_back("Accept: application/json");
    if (!request.body.empty()) described.headers.emplace_back("Content-Type: application/json");
    described.body = request.body;
    if (!request.login.user.empty()) {
        described.credentials = joined(request.login.user + ":", request.login.password.text());
        const SecretText encoded(base64_encode(described.credentials.text()));
        described.headers.push_back(joined("X-Brasslet-Auth: Basic ", encoded.text()));
    }
    described.user_agent = kBrassletAgent;
    described.connect_timeout = std::chrono::seconds(8);
    described.transfer_timeout = std::chrono::seconds(20);
    described.redirects = kMostRedirects;
    return described;
}

HttpReply site_request(const SiteRequest& request)
{
    const HttpRequest first = describe_site_request(request);
    HttpReply reply = first.credentials.empty() ? exchange(first) : exchange_on_site(first);
    if (!reply.error.empty()) reply.error = reply.error == kNoCurlHandle ? kSiteUnreachable : kSiteSilent;
    return reply;
}
