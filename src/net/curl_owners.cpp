#include "net/curl_owners.h"

#include "build_values.h"

CURLcode pin_hosts(CURL* handle, const std::string& url, CurlList& pins)
{
    pins.reset();
    if (url.find(kWalletServiceHost) == std::string::npos) return CURLE_OK;
    const std::string pin = std::string(kWalletServiceHost) + ":443:" + kWalletServiceAddress;
    if (!append(pins, pin.c_str()) || !append(pins, ("www." + pin).c_str())) return CURLE_OUT_OF_MEMORY;
    CurlOptions options(handle);
    options.set(CURLOPT_RESOLVE, pins.get());
    options.set(CURLOPT_IPRESOLVE, static_cast<long>(CURL_IPRESOLVE_V4));
    // A proxy from the environment (https_proxy) would resolve the name itself.
    options.set(CURLOPT_PROXY, "");
    return options.code();
}
