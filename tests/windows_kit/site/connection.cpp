#include "windows_kit/site/connection.h"

#include "windows_kit/site/recordings.h"

#include <openssl/ssl.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace {

using Tls = std::unique_ptr<SSL, OpensslFree<SSL_free>>;

constexpr std::size_t kLongestHead = 16384;

std::string lower(std::string text)
{
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

// Up to the empty line.
std::string plain_head(SOCKET caller)
{
    std::string head;
    char c = 0;
    while (!head.ends_with("\r\n\r\n") && head.size() < kLongestHead && recv(caller, &c, 1, 0) == 1)
        head += c;
    return head;
}

void send_plain(SOCKET caller, const std::string& text)
{
    send(caller, text.data(), static_cast<int>(text.size()), 0);
}

std::string host_in(const std::string& head)
{
    constexpr char kConnect[] = "CONNECT ";
    if (!head.starts_with(kConnect)) return {};
    const std::size_t start = sizeof kConnect - 1;
    const std::size_t end = head.find(":443 ", start);
    return end == std::string::npos ? "" : lower(head.substr(start, end - start));
}

std::size_t body_size_in(const std::string& head)
{
    constexpr char kLength[] = "\r\ncontent-length:";
    const std::size_t place = lower(head).find(kLength);
    return place == std::string::npos ? 0 : std::strtoul(head.c_str() + place + sizeof kLength - 1, nullptr, 10);
}

bool read_more(SSL* tls, std::string& text)
{
    char bytes[4096];
    const int size = SSL_read(tls, bytes, sizeof bytes);
    if (size > 0) text.append(bytes, static_cast<std::size_t>(size));
    return size > 0;
}

void answer_request(SSL* tls, const std::string& host, Site& site)
{
    std::string text;
    if (!read_more(tls, text)) return;
    site.hears_something(host);
    while (text.find("\r\n\r\n") == std::string::npos && text.size() < kLongestHead)
        if (!read_more(tls, text)) return;
    const std::size_t head_size = text.find("\r\n\r\n") + 4;
    const std::string head = text.substr(0, head_size);
    while (text.size() < head_size + body_size_in(head))
        if (!read_more(tls, text)) return;
    const std::string line = head.substr(0, head.find(" HTTP/"));
    const std::string reply = site.answer(host, {line, text.substr(head_size)});
    SSL_write(tls, reply.data(), static_cast<int>(reply.size()));
    SSL_shutdown(tls);
}

}  // namespace

void serve(SOCKET caller, const std::map<std::string, TlsContext>& hosts, Site& site)
{
    const std::string host = host_in(plain_head(caller));
    const auto found = hosts.find(host);
    site.is_called(host);
    if (found == hosts.end()) {
        send_plain(caller, "HTTP/1.1 502 Bad Gateway\r\nContent-Length: 0\r\n\r\n");
    } else {
        send_plain(caller, "HTTP/1.1 200 Connection established\r\n\r\n");
        const Tls tls(SSL_new(found->second.get()));
        SSL_set_fd(tls.get(), static_cast<int>(caller));
        if (SSL_accept(tls.get()) == 1) answer_request(tls.get(), host, site);
    }
    shutdown(caller, SD_SEND);
    closesocket(caller);
}
