// Property: a name is kept exactly when the reply is a JSON object whose "pubkey" is the wallet's identity key, in
// whatever case; every other reply is refused and changes nothing on the disk.
#include "fuzz/answering_site.h"
#include "fuzz/published_name.h"
#include "fuzz/target.h"
#include "text/ascii.h"
#include "text/json.h"

namespace {

void check(std::string_view reply)
{
    AnsweringSite& site = answering_site();
    site.requests.clear();
    site.body_for = [reply](const HttpRequest& request) {
        if (request.url == kDiscoveryUrl) return discovery_document();
        return request.body.empty() ? std::string(reply) : payment_destination();
    };
    const bool is_kept = is_kept_after_verification();
    const bool is_own_key = lower_ascii(text_member(parse_json(reply), "pubkey")) == published_name().key;
    require(is_kept == is_own_key, "the wallet's own key decides");
    require(site.requests.size() == (is_kept ? 3 : 2), "nothing more is asked after another key");
}

const FuzzTarget target("pki", check);

}  // namespace
