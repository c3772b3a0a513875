#include "paymail/discovery.h"

#include "net/chain_service.h"
#include "net/http_exchange.h"
#include "net/url_host.h"
#include "paymail/payname_rules.h"
#include "platform/dns.h"
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

// Every redirect gets a request of its own: the exception for localhost must not follow it to another host.
HttpReply discovery_get(const std::string& url, const RequestTime& time)
{
    HttpReply reply;
    reply.error = kNotSent;
    const auto whole_time = time();
    if (!whole_time) return reply;
    const auto goes_on = [&time](const HttpReply&) { return time().has_value(); };
    reply = exchange_hop_by_hop(url, {kMostRedirects, *whole_time, goes_on}, discovery_request);
    if (reply.error.empty() && (reply.status < 200 || reply.status > 299))
        reply.error = "HTTP " + std::to_string(reply.status);
    return reply;
}

namespace {

// Looking for the mark at the end of the result also finds one that a replacement completed, in one pass. A value
// without braces can neither be nor complete a mark, so this ends.
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

std::string capability_url(const Discovery& discovery, const char* key, const Payname& payname)
{
    std::string url = fill_template(text_member(discovery.capabilities, key), payname.alias, payname.domain);
    return url_is_on_host(url, discovery.host) || url_is_on_host(url, payname.domain) ? url : std::string();
}

namespace {

HttpReply discovery_document(const std::string& host, const RequestTime& time)
{
    return discovery_get("https://" + host + "/.well-known/bsvalias", time);
}

}  // namespace

std::optional<Discovery> discover(const std::string& domain, const RequestTime& time)
{
    const std::string srv_host = find_srv_host(domain);
    Discovery discovery{is_valid_host(srv_host) ? srv_host : domain, nlohmann::json::object()};
    HttpReply reply = discovery_document(discovery.host, time);
    if (!reply.error.empty() && discovery.host != domain) {
        discovery.host = domain;
        reply = discovery_document(domain, time);
    }
    if (!reply.error.empty()) return std::nullopt;
    const nlohmann::json document = parse_json(reply.body);
    if (!document.is_object()) return discovery;
    if (const auto member = document.find("capabilities"); member != document.end() && member->is_object())
        discovery.capabilities = *member;
    return discovery;
}
