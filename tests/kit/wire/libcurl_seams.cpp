#include "kit/wire/libcurl_seams.h"

#include "kit/test_program/afresh.h"

#include <atomic>
#include <cstdarg>
#include <mutex>
#include <optional>
#include <string_view>

namespace {

bool g_refuse = false;
std::optional<CURLoption> g_refused;
std::optional<std::string> g_refused_entry;
std::mutex g_options_mutex;
std::map<CURLoption, long> g_options;
std::atomic<int> g_wiped = 0;

void refuse_nothing()
{
    g_refuse = false;
    g_refused.reset();
    g_refused_entry.reset();
    g_options.clear();
    g_wiped = 0;
}

const bool g_starts_afresh = start_afresh_with(refuse_nothing);

// Requests may run side by side.
long noted(CURLoption option, long value)
{
    const std::scoped_lock lock(g_options_mutex);
    return g_options[option] = value;
}

}  // namespace

void refuse_handles()
{
    g_refuse = true;
}

void refuse_option(CURLoption option)
{
    g_refused = option;
}

void refuse_lists_with(const std::string& beginning)
{
    g_refused_entry = beginning;
}

const std::map<CURLoption, long>& options_set()
{
    return g_options;
}

int wiped_blocks()
{
    return g_wiped;
}

// The linker's names for the two ends of each call; the last pair is wiping_free(void*). An option is an unsigned here
// because a parameter before "..." may be of no type that is promoted.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl50-cpp,cert-dcl51-cpp)
extern "C" CURL* __real_curl_easy_init();
extern "C" CURL* __wrap_curl_easy_init();
extern "C" CURLcode __real_curl_easy_setopt(CURL* handle, unsigned option, ...);
extern "C" CURLcode __wrap_curl_easy_setopt(CURL* handle, unsigned option, ...);
extern "C" curl_slist* __real_curl_slist_append(curl_slist* list, const char* text);
extern "C" curl_slist* __wrap_curl_slist_append(curl_slist* list, const char* text);
extern "C" void __real__Z11wiping_freePv(void* block);
extern "C" void __wrap__Z11wiping_freePv(void* block);

extern "C" CURL* __wrap_curl_easy_init()
{
    return g_refuse ? nullptr : __real_curl_easy_init();
}

extern "C" CURLcode __wrap_curl_easy_setopt(CURL* handle, unsigned option, ...)
{
    const auto which = static_cast<CURLoption>(option);
    if (which == g_refused) return CURLE_UNKNOWN_OPTION;
    std::va_list values;
    va_start(values, option);
    CURLcode code = CURLE_OK;
    if (option < CURLOPTTYPE_OBJECTPOINT) {
        code = __real_curl_easy_setopt(handle, option, noted(which, va_arg(values, long)));
    } else {
        noted(which, 0);
        code = __real_curl_easy_setopt(handle, option, va_arg(values, void*));
    }
    va_end(values);
    return code;
}

extern "C" curl_slist* __wrap_curl_slist_append(curl_slist* list, const char* text)
{
    if (g_refused_entry && std::string_view(text).starts_with(*g_refused_entry)) return nullptr;
    return __real_curl_slist_append(list, text);
}

extern "C" void __wrap__Z11wiping_freePv(void* block)
{
    ++g_wiped;
    __real__Z11wiping_freePv(block);
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl50-cpp,cert-dcl51-cpp)
