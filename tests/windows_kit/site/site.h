// The WordPress-like site and the maker's page: what they answer, and what they have heard.
#pragma once

#include "windows_kit/site/recordings.h"

#include <mutex>
#include <string>
#include <vector>

class Site {
public:
    explicit Site(std::vector<Recording> recordings) : m_recordings(std::move(recordings)) {}

    void set_state(const std::string& state);
    void set_makers_page(const std::string& text);

    // A caller wants to be connected to `host`.
    void is_called(const std::string& host);

    // The first byte of a request has come through the TLS of `host`.
    void hears_something(const std::string& host);

    // The reply to a whole request.
    std::string answer(const std::string& host, const Request& request);

    // A line for each of the above, the oldest first: "HOST called", "HOST heard", and "HOST METHOD PATH" with
    // " (not recorded)" behind it when there was no reply to give.
    std::vector<std::string> heard();
    void forget();

private:
    std::string reply_to(const std::string& host, const Request& request);

    std::mutex m_mutex;
    std::vector<Recording> m_recordings;
    std::string m_state = "bare";
    std::string m_makers_page;
    std::vector<std::string> m_heard;
};
