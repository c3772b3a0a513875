#include "net/http_exchange.h"

#include "net/curl_owners.h"
#include "net/shared_connections.h"
#include "net/url_host.h"
#include "platform/wiping_heap.h"

#include <curl/curl.h>

#include <exception>

CurlLifetime::CurlLifetime()
    : m_is_started(curl_global_init_mem(CURL_GLOBAL_DEFAULT, wiping_malloc, wiping_free, wiping_realloc, wiping_strdup,
                                        wiping_calloc) == CURLE_OK)
{
}

CurlLifetime::~CurlLifetime()
{
    if (m_is_started) curl_global_cleanup();
}

namespace {

// libcurl's write callback: any other result than `count` aborts the transfer.
std::size_t take_body(const char* bytes, std::size_t, std::size_t count, void* body) noexcept
{
    auto& text = *static_cast<std::string*>(body);
    try {
        text.append(bytes, count);
    } catch (const std::exception&) {
        return 0;
    }
    return text.size() > kLargestBody ? 0 : count;
}

CURLcode describe(CURL* handle, const HttpRequest& request, const curl_slist* headers, HttpReply& reply)
{
    CurlOptions options(handle);
    options.set(CURLOPT_URL, request.url.c_str());
    options.set(CURLOPT_PROTOCOLS_STR, "https");
    options.set(CURLOPT_REDIR_PROTOCOLS_STR, "https");
    options.set(CURLOPT_FOLLOWLOCATION, request.redirects > 0 ? 1L : 0L);
    options.set(CURLOPT_MAXREDIRS, request.redirects);
    if (!request.method.empty()) options.set(CURLOPT_CUSTOMREQUEST, request.method.c_str());
    if (!request.body.empty()) options.set(CURLOPT_POSTFIELDS, request.body.text().c_str());
    if (headers != nullptr) options.set(CURLOPT_HTTPHEADER, headers);
    if (!request.credentials.empty()) {
        options.set(CURLOPT_HTTPAUTH, CURLAUTH_BASIC);
        options.set(CURLOPT_USERPWD, request.credentials.text().c_str());
    }
    options.set(CURLOPT_USERAGENT, request.user_agent.c_str());
    options.set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(request.connect_timeout.count()));
    options.set(CURLOPT_TIMEOUT_MS, static_cast<long>(request.transfer_timeout.count()));
    // By default Schannel refuses a certificate whose revocation status it cannot fetch. Behind TLS inspection, or
    // where revocation servers are blocked, every request would fail while browsers show the site.
    options.set(CURLOPT_SSL_OPTIONS, static_cast<long>(CURLSSLOPT_REVOKE_BEST_EFFORT));
    if (!request.check_certificate) {
        options.set(CURLOPT_SSL_VERIFYPEER, 0L);
        options.set(CURLOPT_SSL_VERIFYHOST, 0L);
    }
    options.set(CURLOPT_WRITEFUNCTION, take_body);
    options.set(CURLOPT_WRITEDATA, &reply.body);
    return options.code();
}

// Not for a request with credentials or a pinned address: a connection keeps both as long as it lasts.
CURLcode share_connections(CURL* handle)
{
    CurlOptions options(handle);
    if (void* const share = SharedConnections::of_this_thread()) options.set(CURLOPT_SHARE, share);
    return options.code();
}

void read_outcome(CURL* handle, HttpReply& reply)
{
    long status = 0;
    if (curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status) == CURLE_OK)
        reply.status = static_cast<std::int32_t>(status);
    // For a relative redirect libcurl adds the credentials of the request to this URL.
    const char* redirect_url = nullptr;
    if (curl_easy_getinfo(handle, CURLINFO_REDIRECT_URL, &redirect_url) == CURLE_OK && redirect_url != nullptr)
        reply.redirect_url = without_user(redirect_url);
}

}  // namespace

HttpReply exchange(const HttpRequest& request)
{
    HttpReply reply;
    CurlList headers;
    CurlList pins;
    const CurlEasy handle(curl_easy_init());
    if (!handle) {
        reply.error = kNoCurlHandle;
        return reply;
    }
    CURLcode code = CURLE_OK;
    for (const SecretText& header : request.headers)
        if (!append(headers, header.text().c_str())) code = CURLE_OUT_OF_MEMORY;
    if (code == CURLE_OK) code = describe(handle.get(), request, headers.get(), reply);
    if (code == CURLE_OK && request.pin_wallet_service) code = pin_hosts(handle.get(), request.url, pins);
    if (code == CURLE_OK && request.credentials.empty() && !pins) code = share_connections(handle.get());
    if (code == CURLE_OK) code = curl_easy_perform(handle.get());
    read_outcome(handle.get(), reply);
    if (code != CURLE_OK) reply.error = curl_easy_strerror(code);
    return reply;
}
