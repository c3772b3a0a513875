#include "net/host_pin.h"

#include "build_values.h"

CurlList pin_hosts(CURL* handle, const std::string& url)
{
    if (handle == nullptr || url.find(kWalletServiceHost) == std::string::npos) return nullptr;
    const std::string pin = std::string(kWalletServiceHost) + ":443:" + kWalletServiceAddress;
    CurlList pins;
    if (!append(pins, pin.c_str()) || !append(pins, ("www." + pin).c_str())) return nullptr;
    curl_easy_setopt(handle, CURLOPT_RESOLVE, pins.get());
    curl_easy_setopt(handle, CURLOPT_IPRESOLVE, static_cast<long>(CURL_IPRESOLVE_V4));
    return pins;
}
