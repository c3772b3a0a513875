// The syntax of paynames (bsvalias paymail addressing).
#pragma once

#include <string>
#include <string_view>

bool is_valid_alias(std::string_view alias);  // 1 to 64 of: ASCII letters, digits, "+", "-", ".", "_"
bool is_valid_host(std::string_view host);    // 3 to 253 of: letters, digits, "-", "."; a dot inside, no ".."

// The domain of a site's paynames: the host's ASCII form, as DNS, certificates and wallets use it.
std::string payname_host(const std::string& host);
