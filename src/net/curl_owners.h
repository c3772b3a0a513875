// Owners of libcurl's objects, for the sources of this folder only.
#pragma once

#include <curl/curl.h>

#include <memory>

struct CurlEasyCleanup {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};

struct CurlListFree {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

using CurlEasy = std::unique_ptr<CURL, CurlEasyCleanup>;
using CurlList = std::unique_ptr<curl_slist, CurlListFree>;

// Appends a copy of `text`. False, with the list unchanged, when there is no memory for it.
inline bool append(CurlList& list, const char* text)
{
    curl_slist* longer = curl_slist_append(list.get(), text);
    if (longer == nullptr) return false;
    (void)list.release();
    list.reset(longer);
    return true;
}
