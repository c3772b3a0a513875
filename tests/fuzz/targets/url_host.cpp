// Property: the host that is read from a URL without percent signs reads as itself in a URL of its own, and the
// certificate goes unchecked exactly for the two names of the own machine.
#include "net/url_host.h"

#include "fuzz/target.h"
#include "paymail/discovery.h"

namespace {

void check(std::string_view bytes)
{
    const std::string url(bytes);
    const std::string host = url_host(url);
    const bool is_own_machine = host == "localhost" || host == "127.0.0.1";
    const HttpRequest request = discovery_request(url, std::chrono::milliseconds(1));
    require(request.url == url, "the URL is asked for as it stands");
    require(request.check_certificate == !is_own_machine, "only the own machine goes unchecked");
    require(host.find_first_of("/?#@ ") == std::string::npos, "a host is no more than a host");
    // libcurl takes one layer of percent signs away each time, after it has looked for addresses; no site has any.
    const bool is_plain = !host.empty() && url.find('%') == std::string::npos;
    require(!is_plain || url_host("https://" + host + "/") == host, "a host reads as itself");
}

const FuzzTarget target("url_host", check);

}  // namespace
