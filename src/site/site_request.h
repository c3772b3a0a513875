// One request to the WordPress REST interface of the user's site.
#pragma once

#include "net/http_exchange.h"
#include "text/secret.h"

#include <string>

inline constexpr char kSiteUnreachable[] = "Could not reach the site.";
inline constexpr char kSiteSilent[] = "The site did not answer.";

// `method` is "GET", "POST" or "DELETE", `url` a SiteAddress's base and a path, `body` JSON or empty. With a user, the
// credentials travel twice: as Basic authentication and in a header of the plugin's own, because some hosts strip the
// standard one before WordPress sees it. Blocks until the exchange ends; worker threads only.
//
// At most four redirects are followed, and none away from https. A request with a login follows only those that may
// repeat it (301, 302, 307, 308) and stay on the same site (is_same_site): method, body and login are then sent anew.
//
// The reply's error is one of the two texts above, or empty: then there was an answer, of whatever status. It has a
// redirect_url only when the site sends on to where the login does not go.
HttpReply site_request(const std::string& method, const std::string& url, const SecretText& body,
                       const std::string& user, const SecretText& password);

// What site_request sends to the first host.
HttpRequest describe_site_request(const std::string& method, const std::string& url, const SecretText& body,
                                  const std::string& user, const SecretText& password);
