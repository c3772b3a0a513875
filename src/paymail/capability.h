// Capability URLs of a discovery document (bsvalias capability discovery).
#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

// `url_template` with every "{alias}" and then every "{domain.tld}" replaced, those that a replacement makes included.
// The values hold no braces.
std::string fill_template(std::string_view url_template, std::string_view alias, std::string_view domain);

// True when `url` is https and its authority is exactly `host`: no user, no port, no other case.
bool url_is_on_host(std::string_view url, std::string_view host);

// The URL that `capabilities` gives for `key`, filled in. Empty unless it is on the `host` that answered or on the
// domain itself.
std::string capability_url(const nlohmann::json& capabilities, const char* key, const std::string& alias,
                           const std::string& domain, const std::string& host);
