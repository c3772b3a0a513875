#include "paymail/payname_rules.h"

#include "net/url_host.h"
#include "text/ascii.h"

#include <algorithm>

namespace {

bool is_one_of(char c, std::string_view others)
{
    return is_ascii_letter(c) || is_ascii_digit(c) || others.find(c) != std::string_view::npos;
}

}  // namespace

bool is_valid_alias(std::string_view alias)
{
    return !alias.empty() && alias.size() <= 64 &&
           std::all_of(alias.begin(), alias.end(), [](char c) { return is_one_of(c, "+-._"); });
}

bool is_valid_host(std::string_view host)
{
    if (host.size() < 3 || host.size() > 253) return false;
    if (host.front() == '.' || host.back() == '.' || host.find("..") != std::string_view::npos) return false;
    return host.find('.') != std::string_view::npos &&
           std::all_of(host.begin(), host.end(), [](char c) { return is_one_of(c, "-."); });
}

std::string payname_host(const std::string& host)
{
    return ascii_host(host);
}
