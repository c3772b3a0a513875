// A proxy for every host that accepts and never replies: a request through it lasts until the proxy is closed.
#pragma once

#include <winsock2.h>

#include <string>
#include <vector>

class StalledSite {
public:
    // Programs started from now on ask every host through here; the test waits for those that ask for `host`.
    explicit StalledSite(const std::string& host);
    StalledSite(const StalledSite&) = delete;
    StalledSite& operator=(const StalledSite&) = delete;
    ~StalledSite();

    bool is_asked();        // waits until somebody has asked for the host
    bool is_asked_again();  // whether somebody else has
    void close();           // all who wait fail at once

private:
    bool is_asked_within(long seconds);

    std::string m_first_line;
    SOCKET m_listener = INVALID_SOCKET;
    std::vector<SOCKET> m_callers;
};
