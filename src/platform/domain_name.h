// International domain names.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// The form of `domain` (UTF-8) that DNS and certificates know, "xn--..." for labels with letters beyond ASCII, as the
// system's own resolver makes it (RFC 5891). Empty when it has none.
std::optional<std::string> domain_to_ascii(std::string_view domain);
