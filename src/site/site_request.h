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
// The reply's error is one of the two texts above, or empty: then there was an answer, of whatever status.
HttpReply site_request(const std::string& method, const std::string& url, const SecretText& body,
                       const std::string& user, const SecretText& password);

// What site_request sends.
HttpRequest describe_site_request(const std::string& method, const std::string& url, const SecretText& body,
                                  const std::string& user, const SecretText& password);
