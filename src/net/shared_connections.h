// Requests that follow each other to the same host take one connection, with one TLS handshake.
#pragma once

// For the life of this, the requests of this thread share their connections, except those with credentials or to a
// pinned address: these have a connection of their own, which ends with them. One within another takes its place.
//
// A connection that the server has closed meanwhile is made anew by libcurl, which repeats a request to which nothing
// was answered.
class SharedConnections {
public:
    SharedConnections();
    SharedConnections(const SharedConnections&) = delete;
    SharedConnections& operator=(const SharedConnections&) = delete;
    ~SharedConnections();  // closes them

    // libcurl's share object; null on a thread that shares none.
    static void* of_this_thread();

private:
    void* m_before;
};
