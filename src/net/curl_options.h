// Setting the options of a libcurl handle, for the sources of this folder only.
#pragma once

#include <curl/curl.h>

// Sets options until the first that libcurl refuses: a request never leaves with less protection than was asked for.
class CurlOptions {
public:
    explicit CurlOptions(CURL* handle) : m_handle(handle) {}

    template <typename Value>
    void set(CURLoption option, Value value)
    {
        if (m_code == CURLE_OK) m_code = curl_easy_setopt(m_handle, option, value);
    }
    CURLcode code() const { return m_code; }  // CURLE_OK, or why an option was refused

private:
    CURL* m_handle;
    CURLcode m_code = CURLE_OK;
};
