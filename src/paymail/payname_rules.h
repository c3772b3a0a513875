// What a payname may look like (bsvalias paymail addressing).
#pragma once

#include <string>
#include <string_view>

bool is_valid_alias(std::string_view alias);  // 1 to 64 of: ASCII letters, digits, "+", "-", ".", "_"
bool is_valid_host(std::string_view host);    // 3 to 253 of: letters, digits, "-", "."; a dot inside, no ".."

// The host of a site as it stands in a payname: the ASCII form that DNS, certificates and every paying wallet use.
std::string payname_host(const std::string& host);
