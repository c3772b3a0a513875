#include "site/site_request.h"

#include "text/base64.h"

#include <chrono>

namespace {

// Nothing of it is left behind: the sum is made where the secret takes it from.
SecretText joined(const std::string& front, const std::string& back)
{
    return SecretText(front + back);
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
    request.redirects = 4;
    return request;
}

HttpReply site_request(const std::string& method, const std::string& url, const SecretText& body,
                       const std::string& user, const SecretText& password)
{
    HttpReply reply = exchange(describe_site_request(method, url, body, user, password));
    if (!reply.error.empty()) reply.error = reply.error == kNoCurlHandle ? kSiteUnreachable : kSiteSilent;
    return reply;
}
