// The plain HTTPS GET of a discovery document and of what it points to.
#pragma once

#include "net/http_exchange.h"

#include <chrono>
#include <string>

// Succeeds for a status of 200 to 299, after at most 30 redirects and 12 seconds in all. Otherwise the reply's error
// says why: libcurl's text, "HTTP " and the status, or kNoCurlHandle. Certificates are checked for every host but one
// that is exactly "localhost" or "127.0.0.1", where the owner may run a site of their own.
HttpReply discovery_get(const std::string& url);

// What one step of discovery_get sends: the URL itself, or one that a redirect led to.
HttpRequest discovery_request(const std::string& url, std::chrono::milliseconds time_left);
