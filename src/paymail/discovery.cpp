#include "paymail/discovery.h"

#include "net/chain_service.h"
#include "net/http_exchange.h"
#include "net/url_host.h"
#include "paymail/payname_rules.h"
#include "platform/dns_query.h"
#include "text/ascii.h"
#include "text/json.h"

#include <cstdint>
#include <string_view>

std::string find_srv_host(const std::string& domain)
{
    std::string best;
    std::uint16_t best_priority = 65535;
    for (const SrvRecord& record : query_srv("_bsvalias._tcp." + domain)) {
        if (record.type != kDnsTypeSrv || !record.target || record.port != 443 || record.priority > best_priority)
            continue;
        const std::string_view target = *record.target;
        const std::string host = lower_ascii(target.substr(0, target.find_last_not_of('.') + 1));
        if (!is_valid_host(host)) continue;
        best = host;
        best_priority = record.priority;
    }
    return best;
}

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

namespace {

// Looking at the end of what was written so far finds the marks that a replacement made too, in one pass however long
// the template is. A value without braces can neither be nor complete a mark, so this ends.
std::string replaced(std::string_view text, std::string_view mark, std::string_view value)
{
    std::string result;
    for (const char c : text) {
        result += c;
        if (!result.ends_with(mark)) continue;
        result.resize(result.size() - mark.size());
        result += value;
    }
    return result;
}

}  // namespace

std::string fill_template(std::string_view url_template, std::string_view alias, std::string_view domain)
{
    return replaced(replaced(url_template, "{alias}", alias), "{domain.tld}", domain);
}

bool url_is_on_host(std::string_view url, std::string_view host)
{
    constexpr std::string_view kScheme = "https://";
    if (!url.starts_with(kScheme)) return false;
    url.remove_prefix(kScheme.size());
    const std::string_view authority = url.substr(0, url.find('/'));
    return authority.find('@') == std::string_view::npos && authority == host;
}

std::string capability_url(const nlohmann::json& capabilities, const char* key, const std::string& alias,
                           const std::string& domain, const std::string& host)
{
    std::string url = fill_template(text_member(capabilities, key), alias, domain);
    return url_is_on_host(url, host) || url_is_on_host(url, domain) ? url : std::string();
}
