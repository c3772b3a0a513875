// The address of the user's WordPress site, normalised.
#pragma once

#include <string>

struct SiteAddress {
    std::string base;  // "https://" + host + path, no trailing "/"
    std::string host;  // lower case, without port
    bool ok = false;   // false: both strings are empty
};

// Normalises the typed address. Plain http, user information and any port but 443 are refused. `typed` is trimmed in
// place: the settings keep the trimmed string.
SiteAddress normalise_site(std::string& typed);
