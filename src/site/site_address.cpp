#include "site/site_address.h"

#include "text/ascii.h"

#include <string_view>

namespace {

constexpr std::string_view kScheme = "https://";
constexpr std::string_view kPort = ":443";

}  // namespace

SiteAddress normalise_site(std::string& typed)
{
    typed = std::string(trimmed(typed));
    if (typed.empty() || starts_with_ignoring_case(typed, "http://")) return {};

    std::string_view rest = typed;
    if (starts_with_ignoring_case(rest, kScheme)) rest.remove_prefix(kScheme.size());
    rest = rest.substr(0, rest.find_first_of("?#"));
    rest = rest.substr(0, rest.find_last_not_of('/') + 1);

    std::string_view authority = rest.substr(0, rest.find('/'));
    const std::string_view path = rest.substr(authority.size());
    if (authority.find_first_of("@ ") != std::string_view::npos) return {};
    if (authority.ends_with(kPort)) authority.remove_suffix(kPort.size());
    if (authority.find(':') != std::string_view::npos) return {};
    if (authority.empty() || authority.starts_with('.') || authority.ends_with('.')) return {};

    SiteAddress address;
    address.host = lower_ascii(authority);
    address.base = std::string(kScheme) + address.host + std::string(path);
    address.ok = true;
    return address;
}
