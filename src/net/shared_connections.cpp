#include "net/shared_connections.h"

#include "net/curl_owners.h"

#include <utility>

namespace {

// Used by one thread alone, as libcurl asks for where no lock is given to it.
thread_local CURLSH* g_share = nullptr;

CURLSH* make_share()
{
    CURLSH* const share = curl_share_init();
    if (share == nullptr) return nullptr;
    if (curl_share_setopt(share, CURLSHOPT_SHARE, CURL_LOCK_DATA_CONNECT) == CURLSHE_OK) return share;
    curl_share_cleanup(share);
    return nullptr;
}

}  // namespace

SharedConnections::SharedConnections() : m_before(std::exchange(g_share, make_share())) {}

SharedConnections::~SharedConnections()
{
    curl_share_cleanup(std::exchange(g_share, static_cast<CURLSH*>(m_before)));
}

void* SharedConnections::of_this_thread()
{
    return g_share;
}
