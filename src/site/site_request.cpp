#include "site/site_request.h"

#include "net/http_exchange.h"
#include "net/url_host.h"
#include "text/ascii.h"

#include <chrono>

namespace {

constexpr int kMostRedirects = 4;

// Nothing of it is left behind: the sum is made where the secret takes it from.
SecretText joined(const std::string& front, const std::string& back)
{
    return SecretText(front + back);
}

// After these the same request is made at the other address. RFC 9110 lets a client turn a POST into a GET after 301
// and 302; the plugin's site means the request as it was. 303 says that it has been carried out.
bool repeats_request(std::int32_t status)
{
    return status == 301 || status == 302 || status == 307 || status == 308;
}

// libcurl would send the plugin's own header, and after 307 and 308 the body too, to whatever host a redirect names.
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
    HttpReply reply = exchange_hop_by_hop(first.url, kMostRedirects, first.transfer_timeout, describe, follows);
    if (!reply.error.empty() || is_same_site(first.url, reply.redirect_url)) reply.redirect_url.clear();
    return reply;
}

}  // namespace

HttpRequest describe_site_request(const std::string& method, const std::string& url, const SecretText& body,
                                  const std::string& user, const SecretText& password)
{
    HttpRequest request;
    request.url = url;
    request.method = method;
    request.headers.emplace_back("Accept: application/json");
    if (!body.empty()) request.headers.emplace_back("Content-Type: application/json");
    request.body = body;
    if (!user.empty()) {
        request.credentials = joined(user + ":", password.text());
        const SecretText encoded(base64_encode(request.credentials.text()));
        request.headers.push_back(joined("X-Brasslet-Auth: Basic ", encoded.text()));
    }
    request.user_agent = kBrassletAgent;
    request.connect_timeout = std::chrono::seconds(8);
    request.transfer_timeout = std::chrono::seconds(20);
    request.redirects = kMostRedirects;
    return request;
}

HttpReply site_request(const std::string& method, const std::string& url, const SecretText& body,
                       const std::string& user, const SecretText& password)
{
    const HttpRequest request = describe_site_request(method, url, body, user, password);
    HttpReply reply = request.credentials.empty() ? exchange(request) : exchange_on_site(request);
    if (!reply.error.empty()) reply.error = reply.error == kNoCurlHandle ? kSiteUnreachable : kSiteSilent;
    return reply;
}
