// Hosts of URLs, parsed by libcurl, which connects to them.
#pragma once

#include <string>

// The host of a URL without user, port and path. Empty when libcurl cannot parse the URL.
std::string url_host(const std::string& url);

// `url` without user and password; empty when libcurl cannot parse it.
std::string without_user(const std::string& url);

// `host` in lower case, in the ASCII form of DNS and certificates ("xn--..." for a label with other characters). Only
// in lower case when it has no such form: an invalid host is refused where hosts are checked.
std::string ascii_host(const std::string& host);

// True when both URLs are https on port 443 without user information, and their hosts are equal or differ by one
// leading "www.": owners type either form of their site.
bool is_same_site(const std::string& url, const std::string& other);
