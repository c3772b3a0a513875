// Property: a template is filled in until no mark is left, as if one were replaced after the other, and a capability
// URL is https on exactly the host that was asked, as libcurl reads the URL too.
//
// Three lines: alias, domain and the template of a discovery document.
#include "paymail/discovery.h"

#include "fuzz/libcurl_host.h"
#include "fuzz/target.h"
#include "paymail/payname_rules.h"
#include "text/ascii.h"

#include <algorithm>

namespace {

std::string_view next_line(std::string_view& rest)
{
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    return line;
}

// One mark after the other, from the start of the text each time.
std::string replaced_one_by_one(std::string text, std::string_view mark, const std::string& value)
{
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark))
        text.replace(at, mark.size(), value);
    return text;
}

void check(std::string_view bytes)
{
    const std::string alias = lower_ascii(next_line(bytes));
    const std::string domain = lower_ascii(next_line(bytes));
    if (!is_valid_alias(alias) || !is_valid_host(domain)) return;  // the verification asks nobody about these

    const std::string filled = fill_template(bytes, alias, domain);
    const std::string by_and_by = replaced_one_by_one(std::string(bytes), "{alias}", alias);
    require(filled == replaced_one_by_one(by_and_by, "{domain.tld}", domain), "marks are filled in one by one");
    require(filled.find("{alias}") == std::string::npos, "no mark is left");

    const nlohmann::json capabilities = {{"pki", std::string(bytes)}};
    const std::string url = capability_url({"pay.example.org", capabilities}, "pki", {alias, domain});
    if (url.empty()) return;
    require(url == filled, "a capability URL is the filled template");
    const bool is_on_host = url_is_on_host(url, "pay.example.org");
    const std::string host = is_on_host ? "pay.example.org" : domain;
    require(url == "https://" + host || url.starts_with("https://" + host + "/"), "a capability URL is on its host");
    require(libcurl_agrees(url, host), "libcurl sees the same host, or refuses the URL");
}

const FuzzTarget target("capability_url", check);

}  // namespace
