#include "paymail/srv_host.h"

#include "paymail/payname_rules.h"
#include "platform/dns.h"
#include "text/ascii.h"

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
