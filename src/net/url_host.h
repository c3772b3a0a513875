// The host of a URL, as libcurl will connect to it.
#pragma once

#include <string>

// Without user, port and path; empty when libcurl cannot read the URL.
std::string url_host(const std::string& url);
