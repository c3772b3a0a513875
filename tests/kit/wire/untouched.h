// A port that must stay untouched.
#pragma once

#include "kit/wire/https_server.h"

#include <poll.h>
#include <unistd.h>

#include <cstdint>
#include <string>

// Listens, and never accepts: a connection that the system has made for a client waits there and can be seen, so not
// one byte can have been sent without it.
class Untouched {
public:
    explicit Untouched(const std::string& address, std::uint16_t port = 443) : m_listener(listener_on(address, port)) {}
    Untouched(const Untouched&) = delete;
    Untouched& operator=(const Untouched&) = delete;
    ~Untouched() { close(m_listener); }

    bool is_untouched() const
    {
        pollfd waiting{m_listener, POLLIN, 0};
        return poll(&waiting, 1, 0) == 0;
    }

private:
    int m_listener;
};
