#include "paymail/discovery.h"

#include "net/chain_service.h"
#include "net/redirects.h"
#include "net/url_host.h"

namespace {

constexpr int kMostRedirects = 30;
constexpr std::chrono::seconds kWholeTime{12};

bool is_own_machine(const std::string& url)
{
    const std::string host = url_host(url);
    return host == "localhost" || host == "127.0.0.1";
}

}  // namespace

HttpRequest discovery_request(const std::string& url, std::chrono::milliseconds time_left)
{
    HttpRequest request;
    request.url = url;
    request.user_agent = kWalletAgent;
    request.transfer_timeout = time_left;
    request.check_certificate = !is_own_machine(url);
    request.pin_wallet_service = true;
    return request;
}

// A redirect that leaves the own machine leaves its exception from the certificate check behind: every hop is described
// for the host that it goes to.
HttpReply discovery_get(const std::string& url)
{
    HttpReply reply = exchange_hop_by_hop(url, kMostRedirects, kWholeTime, discovery_request);
    if (reply.error.empty() && (reply.status < 200 || reply.status > 299))
        reply.error = "HTTP " + std::to_string(reply.status);
    return reply;
}
