#include "net/url_host.h"

#include <curl/curl.h>

#include <memory>

namespace {

struct UrlCleanup {
    void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
struct TextFree {
    void operator()(char* text) const { curl_free(text); }
};

}  // namespace

std::string url_host(const std::string& url)
{
    const std::unique_ptr<CURLU, UrlCleanup> parsed(curl_url());
    if (!parsed || curl_url_set(parsed.get(), CURLUPART_URL, url.c_str(), 0) != CURLUE_OK) return {};
    char* host = nullptr;
    if (curl_url_get(parsed.get(), CURLUPART_HOST, &host, 0) != CURLUE_OK) return {};
    const std::unique_ptr<char, TextFree> owner(host);
    return host;
}
