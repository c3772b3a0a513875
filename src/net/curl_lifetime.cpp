#include "net/curl_lifetime.h"

#include "platform/wiping_heap.h"

#include <curl/curl.h>

CurlLifetime::CurlLifetime()
    : m_is_started(curl_global_init_mem(CURL_GLOBAL_DEFAULT, wiping_malloc, wiping_free, wiping_realloc, wiping_strdup,
                                        wiping_calloc) == CURLE_OK)
{
}

CurlLifetime::~CurlLifetime()
{
    if (m_is_started) curl_global_cleanup();
}
