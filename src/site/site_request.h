// One request to the WordPress REST interface of the user's site.
#pragma once

#include "net/http_exchange.h"
#include "text/secret.h"

#include <string>

inline constexpr char kSiteUnreachable[] = "Could not reach the site.";
inline constexpr char kSiteSilent[] = "The site did not answer.";

struct SiteLogin {
    std::string user;  // empty: the request has no login, whatever the password is
    SecretText password;
};

struct SiteRequest {
    std::string method;  // "GET", "POST" or "DELETE"
    std::string url;     // the base of a SiteAddress and a path
    SecretText body;     // JSON; empty: none is sent
    SiteLogin login;
};

// Sends `request`. A login is sent twice, as Basic authentication and in the header "X-Brasslet-Auth", because some
// hosts strip the standard one before WordPress sees it. Blocks until the exchange ends; worker threads only.
//
// At most four redirects are followed, all of them https. With a login, only 301, 302, 307 and 308 on the same site
// (is_same_site) are followed, each by the same method with the same body and login.
//
// The reply's error is kSiteUnreachable, kSiteSilent, or empty for a response of any status. Its redirect_url is set
// only when a request with a login was redirected to where the login must not go.
[[nodiscard]] HttpReply site_request(const SiteRequest& request);

// The request that site_request sends first.
[[nodiscard]] HttpRequest describe_site_request(const SiteRequest& request);
