// libcurl's global state.
#pragma once

// Made once by the main thread before any other thread runs, and destroyed by it at the end. Every copy that libcurl
// makes of a credential lies in memory that is wiped when it is freed (platform/wiping_heap.h).
class CurlLifetime {
public:
    CurlLifetime();
    CurlLifetime(const CurlLifetime&) = delete;
    CurlLifetime& operator=(const CurlLifetime&) = delete;
    ~CurlLifetime();

    bool is_started() const { return m_is_started; }

private:
    bool m_is_started = false;
};
