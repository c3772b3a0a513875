// A road to every site on which nobody ever answers: a flow that takes it lasts until the road is closed.
#pragma once

#include <winsock2.h>

class StalledSite {
public:
    StalledSite();  // programs started from now on ask every site through here
    StalledSite(const StalledSite&) = delete;
    StalledSite& operator=(const StalledSite&) = delete;
    ~StalledSite();

    bool is_asked();        // waits until a flow has come this far
    bool is_asked_again();  // whether another one has
    void close();           // the flow that waits fails at once

private:
    SOCKET m_listener = INVALID_SOCKET;
    SOCKET m_asked = INVALID_SOCKET;
};
