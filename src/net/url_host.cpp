#include "net/url_host.h"

#include "platform/dns.h"
#include "text/ascii.h"
#include "text/freed_by.h"

#include <curl/curl.h>

#include <algorithm>
#include <memory>

namespace {

using Url = std::unique_ptr<CURLU, FreedBy<curl_url_cleanup>>;

Url parsed(const std::string& text)
{
    Url url(curl_url());
    if (url && curl_url_set(url.get(), CURLUPART_URL, text.c_str(), 0) != CURLUE_OK) url.reset();
    return url;
}

// Empty when the URL has no such part.
std::string part_of(const Url& url, CURLUPart part, unsigned flags = 0)
{
    char* text = nullptr;
    if (!url || curl_url_get(url.get(), part, &text, flags) != CURLUE_OK) return {};
    const std::unique_ptr<char, FreedBy<curl_free>> owner(text);
    return text;
}

bool is_plain_https(const Url& url)
{
    return part_of(url, CURLUPART_SCHEME) == "https" && part_of(url, CURLUPART_PORT, CURLU_DEFAULT_PORT) == "443" &&
           part_of(url, CURLUPART_USER).empty() && part_of(url, CURLUPART_PASSWORD).empty();
}

}  // namespace

std::string url_host(const std::string& url)
{
    return part_of(parsed(url), CURLUPART_HOST);
}

std::string without_user(const std::string& url)
{
    const Url found = parsed(url);
    if (!found) return {};
    curl_url_set(found.get(), CURLUPART_USER, nullptr, 0);
    curl_url_set(found.get(), CURLUPART_PASSWORD, nullptr, 0);
    return part_of(found, CURLUPART_URL);
}

std::string ascii_host(const std::string& host)
{
    const bool is_ascii = std::all_of(host.begin(), host.end(), [](char c) { return (c & 0x80) == 0; });
    return lower_ascii(is_ascii ? host : domain_to_ascii(host).value_or(host));
}

bool is_same_site(const std::string& url, const std::string& other)
{
    const Url first = parsed(url);
    const Url second = parsed(other);
    if (!is_plain_https(first) || !is_plain_https(second)) return false;
    const std::string one = ascii_host(part_of(first, CURLUPART_HOST));
    const std::string two = ascii_host(part_of(second, CURLUPART_HOST));
    return !one.empty() && (one == two || one == "www." + two || two == "www." + one);
}
