// The address of the user's WordPress site, in the one form that the rest of the program uses.
#pragma once

#include <string>

struct SiteAddress {
    std::string base;  // "https://" + host + path, no trailing "/"
    std::string host;  // lower case, without port
    bool ok = false;   // false: unusable, and both texts are empty
};

// Turns what the user typed into a SiteAddress. Plain http, user information and any port but 443 are refused.
// `typed` is trimmed in place, so that the settings keep the trimmed text.
SiteAddress normalise_site(std::string& typed);
