// The system's DNS client, and the names that it knows hosts by.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::uint16_t kDnsTypeSrv = 33;

// One record of an answer (RFC 2782), as the system returned it; an answer may hold records of other types too, whose
// other fields then mean nothing.
struct SrvRecord {
    std::uint16_t type = 0;
    std::optional<std::string> target;
    std::uint16_t port = 0;
    std::uint16_t priority = 0;
};

// All records that a standard query for SRV at `name` returned, in their order; empty when the query fails.
std::vector<SrvRecord> query_srv(const std::string& name);

// The form of `domain` (UTF-8) that DNS and certificates know, "xn--..." for labels with letters beyond ASCII, as the
// system's own resolver makes it (RFC 5891). Empty when it has none.
std::optional<std::string> domain_to_ascii(std::string_view domain);
