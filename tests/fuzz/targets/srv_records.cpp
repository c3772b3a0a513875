// Property: the host found is empty or a valid host in lower case that is the target of a record on port 443, and no
// such record has a lower priority; records of any other kind change nothing.
//
// A line for every record: type, port, priority and target, separated by single blanks; without the last blank there is
// no target.
#include "paymail/discovery.h"

#include "fuzz/target.h"
#include "kit/stand_in/stand_in.h"
#include "paymail/payname_rules.h"
#include "text/ascii.h"

#include <algorithm>
#include <optional>

namespace {

std::optional<std::string_view> next_part(std::string_view& rest, char separator)
{
    if (rest.empty()) return std::nullopt;
    const std::string_view part = rest.substr(0, rest.find(separator));
    rest.remove_prefix(std::min(part.size() + 1, rest.size()));
    return part;
}

std::uint16_t number(std::optional<std::string_view> digits)
{
    std::uint32_t value = 0;
    for (const char c : digits.value_or(""))
        if (is_ascii_digit(c)) value = (value * 10 + static_cast<std::uint32_t>(c - '0')) & 0xFFFFU;
    return static_cast<std::uint16_t>(value);
}

std::vector<SrvRecord> records_in(std::string_view text)
{
    std::vector<SrvRecord> records;
    while (const auto line = next_part(text, '\n')) {
        std::string_view rest = *line;
        SrvRecord record;
        record.type = number(next_part(rest, ' '));
        record.port = number(next_part(rest, ' '));
        record.priority = number(next_part(rest, ' '));
        if (!rest.empty()) record.target = std::string(rest);
        records.push_back(record);
    }
    return records;
}

// The target as a host; empty when the record does not serve.
std::string served_host(const SrvRecord& record)
{
    if (record.type != kDnsTypeSrv || record.port != 443 || !record.target) return {};
    std::string host = lower_ascii(*record.target);
    while (host.ends_with('.'))
        host.pop_back();
    return is_valid_host(host) ? host : std::string();
}

void check(std::string_view text)
{
    const std::vector<SrvRecord> records = records_in(text);
    std::vector<SrvRecord> serving;
    for (const SrvRecord& record : records)
        if (!served_host(record).empty()) serving.push_back(record);

    stand_in().srv_queries.clear();
    stand_in().srv_records = records;
    const std::string host = find_srv_host("example.org");
    require(host.empty() == serving.empty(), "there is a host when a record serves");
    stand_in().srv_records = serving;
    require(find_srv_host("example.org") == host, "records that do not serve change nothing");
    if (host.empty()) return;

    const auto is_lower = [](const SrvRecord& a, const SrvRecord& b) { return a.priority < b.priority; };
    const auto best = std::min_element(serving.begin(), serving.end(), is_lower);
    const auto is_found = [&](const SrvRecord& record) {
        return record.priority == best->priority && served_host(record) == host;
    };
    require(std::any_of(serving.begin(), serving.end(), is_found), "the lowest priority serves");
}

const FuzzTarget target("srv_records", check);

}  // namespace
