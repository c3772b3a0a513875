#include "net/libcurl_seams.h"

#include <curl/curl.h>

#include <atomic>

namespace {

bool g_refuse = false;
std::atomic<int> g_wiped = 0;

}  // namespace

void refuse_handles()
{
    g_refuse = true;
}

int wiped_blocks()
{
    return g_wiped;
}

// The linker's names for the two ends of each call; the second pair is wiping_free(void*).
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" CURL* __real_curl_easy_init();
extern "C" CURL* __wrap_curl_easy_init();
extern "C" void __real__Z11wiping_freePv(void* block);
extern "C" void __wrap__Z11wiping_freePv(void* block);

extern "C" CURL* __wrap_curl_easy_init()
{
    return g_refuse ? nullptr : __real_curl_easy_init();
}

extern "C" void __wrap__Z11wiping_freePv(void* block)
{
    ++g_wiped;
    __real__Z11wiping_freePv(block);
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
