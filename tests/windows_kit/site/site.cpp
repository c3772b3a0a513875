#include "windows_kit/site/site.h"

namespace {

constexpr char kMakersHost[] = "corvane.example";
constexpr char kMakersPage[] = "GET /brasslet";

std::string plain_reply(const std::string& status, const std::string& text)
{
    return "HTTP/1.1 " + status + "\r\nContent-Type: text/html\r\nContent-Length: " + std::to_string(text.size()) +
           "\r\nConnection: close\r\n\r\n" + text;
}

}  // namespace

void Site::set_state(const std::string& state)
{
    const std::lock_guard lock(m_mutex);
    m_state = state;
}

void Site::set_makers_page(const std::string& text)
{
    const std::lock_guard lock(m_mutex);
    m_makers_page = text;
}

void Site::is_called(const std::string& host)
{
    const std::lock_guard lock(m_mutex);
    m_heard.push_back(host + " called");
}

void Site::hears_something(const std::string& host)
{
    const std::lock_guard lock(m_mutex);
    m_heard.push_back(host + " heard");
}

std::string Site::answer(const std::string& host, const Request& request)
{
    const std::lock_guard lock(m_mutex);
    std::string reply = reply_to(host, request);
    m_heard.push_back(host + " " + request.line + (reply.empty() ? " (not recorded)" : ""));
    return reply.empty() ? plain_reply("500 Internal Server Error", "") : reply;
}

std::string Site::reply_to(const std::string& host, const Request& request)
{
    if (host == kMakersHost) return request.line == kMakersPage ? plain_reply("200 OK", m_makers_page) : "";
    for (const Recording& recording : m_recordings) {
        if (recording.state != m_state || !is_same_request(request, recording.request)) continue;
        if (!recording.next_state.empty()) m_state = recording.next_state;
        return recording.reply;
    }
    return {};
}

std::vector<std::string> Site::heard()
{
    const std::lock_guard lock(m_mutex);
    return m_heard;
}

void Site::forget()
{
    const std::lock_guard lock(m_mutex);
    m_heard.clear();
}
