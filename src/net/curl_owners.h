// libcurl's easy handle for the sources of this folder: owners of its objects, its options, and the pinned host.
#pragma once

#include "text/freed_by.h"

#include <curl/curl.h>

#include <memory>
#include <string>

using CurlEasy = std::unique_ptr<CURL, FreedBy<curl_easy_cleanup>>;
using CurlList = std::unique_ptr<curl_slist, FreedBy<curl_slist_free_all>>;

// Appends a copy of `text`. False, with the list unchanged, when there is no memory for it.
[[nodiscard]] inline bool append(CurlList& list, const char* text)
{
    curl_slist* longer = curl_slist_append(list.get(), text);
    if (longer == nullptr) return false;
    (void)list.release();
    list.reset(longer);
    return true;
}

// Sets options until the first that libcurl refuses: a request never leaves with less protection than was asked for.
class CurlOptions {
public:
    explicit CurlOptions(CURL* handle) : m_handle(handle) {}

    template <typename Value>
    void set(CURLoption option, Value value)
    {
        if (m_code == CURLE_OK) m_code = curl_easy_setopt(m_handle, option, value);
    }
    [[nodiscard]] CURLcode code() const { return m_code; }  // CURLE_OK, or why an option was refused

private:
    CURL* m_handle;
    CURLcode m_code = CURLE_OK;
};

// Pins the wallet service's host name to a fixed address, so that name resolution cannot redirect it: the bare host and
// its "www." form on port 443, over IPv4 only and without a proxy, when `url` contains the host name anywhere, in its
// path or query too. `pins` owns the list that libcurl uses, and must outlive `handle`; it is empty when nothing is
// pinned. After any other result than CURLE_OK the request must not be sent.
[[nodiscard]] CURLcode pin_hosts(CURL* handle, const std::string& url, CurlList& pins);
