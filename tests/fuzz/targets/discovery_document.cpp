// Property: whatever a discovery document says, only the host that gave it is asked, by https with its certificate
// checked, and a refused document changes nothing on the disk.
#include "fuzz/answering_site.h"
#include "fuzz/libcurl_host.h"
#include "fuzz/published_name.h"
#include "fuzz/target.h"

namespace {

void check(std::string_view document)
{
    AnsweringSite& site = answering_site();
    site.requests.clear();
    site.body_for = [document](const HttpRequest& request) {
        if (request.url == kDiscoveryUrl) return std::string(document);
        return request.body.empty() ? pki_document() : payment_destination();
    };
    const bool is_kept = is_kept_after_verification();
    require(!site.requests.empty() && site.requests.front().url == kDiscoveryUrl, "the document is asked for first");
    require(site.requests.size() <= 3 && (!is_kept || site.requests.size() == 3), "every document is asked for once");

    const std::string host = std::string("https://") + kPublishedDomain;
    for (const HttpRequest& request : site.requests) {
        require(request.url == host || request.url.starts_with(host + "/"), "only that host is asked");
        require(request.check_certificate, "its certificate is checked");
        require(libcurl_agrees(request.url, kPublishedDomain), "libcurl asks the same host");
    }
}

const FuzzTarget target("discovery_document", check);

}  // namespace
