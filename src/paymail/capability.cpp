#include "paymail/capability.h"

#include "text/json.h"

namespace {

// Looking at the end of what was written so far finds the marks that a replacement made too, in one pass however long
// the template is. A value without braces can neither be nor complete a mark, so this ends.
std::string replaced(std::string_view text, std::string_view mark, std::string_view value)
{
    std::string result;
    for (const char c : text) {
        result += c;
        if (!result.ends_with(mark)) continue;
        result.resize(result.size() - mark.size());
        result += value;
    }
    return result;
}

}  // namespace

std::string fill_template(std::string_view url_template, std::string_view alias, std::string_view domain)
{
    return replaced(replaced(url_template, "{alias}", alias), "{domain.tld}", domain);
}

bool url_is_on_host(std::string_view url, std::string_view host)
{
    constexpr std::string_view kScheme = "https://";
    if (!url.starts_with(kScheme)) return false;
    url.remove_prefix(kScheme.size());
    const std::string_view authority = url.substr(0, url.find('/'));
    return authority.find('@') == std::string_view::npos && authority == host;
}

std::string capability_url(const nlohmann::json& capabilities, const char* key, const std::string& alias,
                           const std::string& domain, const std::string& host)
{
    std::string url = fill_template(text_member(capabilities, key), alias, domain);
    return url_is_on_host(url, host) || url_is_on_host(url, domain) ? url : std::string();
}
