#include "kit/windows/stalled_site.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr long kPatience = 10;  // seconds

bool is_readable(SOCKET socket, long seconds)
{
    fd_set waiting{};
    FD_SET(socket, &waiting);
    timeval patience{seconds, 0};
    return select(0, &waiting, nullptr, nullptr, &patience) == 1;
}

// The first line of what a proxy is told; what comes of it in one piece is enough of it.
std::string request_of(SOCKET caller)
{
    char text[256] = {};
    const int size = is_readable(caller, kPatience) ? recv(caller, text, sizeof text, 0) : 0;
    return {text, static_cast<std::size_t>(size > 0 ? size : 0)};
}

}  // namespace

StalledSite::StalledSite(const std::string& host) : m_first_line("CONNECT " + host + ":443 ")
{
    WSADATA ignored{};
    EXPECT_EQ(WSAStartup(MAKEWORD(2, 2), &ignored), 0);
    m_listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    int size = sizeof address;
    EXPECT_EQ(bind(m_listener, plain, size), 0);
    EXPECT_EQ(listen(m_listener, 4), 0);
    EXPECT_EQ(getsockname(m_listener, plain, &size), 0);
    const std::wstring proxy = L"http://127.0.0.1:" + std::to_wstring(ntohs(address.sin_port));
    SetEnvironmentVariableW(L"https_proxy", proxy.c_str());
    SetEnvironmentVariableW(L"no_proxy", nullptr);
}

StalledSite::~StalledSite()
{
    close();
    WSACleanup();
}

bool StalledSite::is_asked_within(long seconds)
{
    while (is_readable(m_listener, seconds)) {
        m_callers.push_back(accept(m_listener, nullptr, nullptr));
        if (request_of(m_callers.back()).starts_with(m_first_line)) return true;
    }
    return false;
}

bool StalledSite::is_asked()
{
    return is_asked_within(kPatience);
}

bool StalledSite::is_asked_again()
{
    return is_asked_within(0);
}

void StalledSite::close()
{
    for (const SOCKET socket : m_callers)
        closesocket(socket);
    m_callers.clear();
    if (m_listener != INVALID_SOCKET) closesocket(m_listener);
    m_listener = INVALID_SOCKET;
}
