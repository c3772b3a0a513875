#include "windows/stalled_site.h"

#include <gtest/gtest.h>

#include <string>

namespace {

void close_socket(SOCKET& socket)
{
    if (socket != INVALID_SOCKET) closesocket(socket);
    socket = INVALID_SOCKET;
}

bool has_caller(SOCKET listener, long seconds)
{
    fd_set waiting{};
    FD_SET(listener, &waiting);
    timeval patience{seconds, 0};
    return select(0, &waiting, nullptr, nullptr, &patience) == 1;
}

}  // namespace

StalledSite::StalledSite()
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
    EXPECT_EQ(listen(m_listener, 2), 0);
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

bool StalledSite::is_asked()
{
    if (!has_caller(m_listener, 10)) return false;
    m_asked = accept(m_listener, nullptr, nullptr);
    return m_asked != INVALID_SOCKET;
}

bool StalledSite::is_asked_again()
{
    return has_caller(m_listener, 0);
}

void StalledSite::close()
{
    close_socket(m_listener);
    close_socket(m_asked);
}
