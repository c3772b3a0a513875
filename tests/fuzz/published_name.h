// A payname on a site, verified from outside by a program that is bound to a wallet: all that the verification asks
// for is answered rightly, but for what a target answers in its place.
#pragma once

#include <string>

inline constexpr char kPublishedDomain[] = "example.org";
inline constexpr char kDiscoveryUrl[] = "https://example.org/.well-known/bsvalias";

struct PublishedName {
    std::string key;      // the wallet's identity key
    std::string address;  // its payment address
};

const PublishedName& published_name();  // the program is bound to its wallet from the first call on

std::string discovery_document();
std::string pki_document();
std::string payment_destination();

// Verifies the name, of which the kept names hold nothing yet. True when it is kept; then they hold it,
// and otherwise not a byte on the disk has changed.
bool is_kept_after_verification();
