// Property: an accepted address is https on a lower-case host without user, port, query and fragment, reads as itself
// when it is typed again, and names the host that libcurl connects to; a refused one gives nothing.
#include "site/site_address.h"

#include "fuzz/libcurl_host.h"
#include "fuzz/target.h"
#include "paymail/payname_rules.h"

namespace {

void check(std::string_view bytes)
{
    std::string typed(bytes);
    const SiteAddress address = normalise_site(typed);
    require(trimmed(bytes) == typed, "what was typed is trimmed and nothing else");
    if (!address.ok) {
        require(address.base.empty() && address.host.empty(), "a refused address gives nothing");
        return;
    }
    require(!address.host.empty() && lower_ascii(address.host) == address.host, "the host is in lower case");
    require(address.host.find_first_of("/?#@: ") == std::string::npos, "the host is no more than a host");
    require(address.base == "https://" + address.host || address.base.starts_with("https://" + address.host + "/"),
            "the base is https on the host");
    require(address.base.find_first_of("?#") == std::string::npos && !address.base.ends_with('/'),
            "the base ends in its path");

    std::string again = address.base;
    const SiteAddress same = normalise_site(again);
    // White space at the end is trimmed when it is typed, and stays inside when a "?" or a "/" followed it.
    if (trimmed(address.base) == address.base)
        require(same.ok && same.base == address.base && same.host == address.host, "the base reads as itself");

    // Any other host is refused later, as the host of a payname.
    if (is_valid_host(address.host))
        require(libcurl_agrees(address.base + "/wp-json", address.host), "libcurl connects to the same host");
}

const FuzzTarget target("site_address", check);

}  // namespace
