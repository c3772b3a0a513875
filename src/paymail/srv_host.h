// Where a domain's paymail service lives: the SRV record "_bsvalias._tcp." of the domain (bsvalias host discovery, RFC
// 2782).
#pragma once

#include <string>

// The lower-case target of the record on port 443 with the lowest priority, without trailing dots; of several with that
// priority the last. Weights are not used. Empty when there is none, or no target is a valid host.
std::string find_srv_host(const std::string& domain);
