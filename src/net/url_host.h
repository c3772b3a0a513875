// What URLs say of the host that they lead to, as libcurl reads them.
#pragma once

#include <string>

// The host of a URL, as libcurl will connect to it: without user, port and path. Empty when libcurl cannot read the
// URL.
std::string url_host(const std::string& url);

// `url` without user and password; empty when libcurl cannot read it.
std::string without_user(const std::string& url);

// `host` in the ASCII form that DNS and certificates use ("xn--..." for letters beyond ASCII), in lower case. As it
// stands, in lower case, when there is no such form: what is no host fails where hosts are checked.
std::string ascii_host(const std::string& host);

// A site's host may carry one leading "www." or lack it, and its owner types either.
//
// True when both URLs are https on port 443 without user information, and their hosts are the same but for one leading
// "www.".
bool is_same_site(const std::string& url, const std::string& other);
