// The wallet service's host name is pinned to a fixed address, so that name resolution cannot redirect it.
#pragma once

#include "net/curl_owners.h"

#include <string>

// Pins the bare host and its "www." form on port 443, over IPv4 only and through no proxy, when `url` contains the host
// name anywhere, a path or a query included. The list that libcurl then holds is put into `pins`, which must outlive
// `handle`; it is empty when nothing is to be pinned. After any other result than CURLE_OK the request must not be
// sent.
CURLcode pin_hosts(CURL* handle, const std::string& url, CurlList& pins);
