// Owners of libcurl's objects, for the sources of this folder only.
#pragma once

#include "text/freed_by.h"

#include <curl/curl.h>

#include <memory>

using CurlEasy = std::unique_ptr<CURL, FreedBy<curl_easy_cleanup>>;
using CurlList = std::unique_ptr<curl_slist, FreedBy<curl_slist_free_all>>;

// Appends a copy of `text`. False, with the list unchanged, when there is no memory for it.
inline bool append(CurlList& list, const char* text)
{
    curl_slist* longer = curl_slist_append(list.get(), text);
    if (longer == nullptr) return false;
    (void)list.release();
    list.reset(longer);
    return true;
}
