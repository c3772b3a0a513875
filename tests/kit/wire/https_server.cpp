#include "kit/wire/https_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>

int listener_on(const std::string& address, std::uint16_t port)
{
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int on = 1;
    setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in where{};
    where.sin_family = AF_INET;
    where.sin_port = htons(port);
    inet_pton(AF_INET, address.c_str(), &where.sin_addr);
    if (bind(listener, reinterpret_cast<const sockaddr*>(&where), sizeof where) != 0 || listen(listener, 16) != 0)
        throw std::runtime_error("cannot listen on " + address);
    return listener;
}

namespace {

// Waits for either; true when `one` is ready and the server goes on.
bool wait_for(int one, int stop)
{
    pollfd both[] = {{one, POLLIN, 0}, {stop, POLLIN, 0}};
    return poll(both, 2, -1) > 0 && both[1].revents == 0;
}

// Waits for a request on a connection that is kept; false when somebody else wants one, or the server stops.
bool comes_before(int request, int other, int stop)
{
    pollfd all[] = {{request, POLLIN, 0}, {other, POLLIN, 0}, {stop, POLLIN, 0}};
    return poll(all, 3, -1) > 0 && all[0].revents != 0 && all[2].revents == 0;
}

std::size_t content_length(const std::string& head)
{
    constexpr char kHeader[] = "Content-Length: ";
    const std::size_t at = head.find(kHeader);
    return at == std::string::npos ? 0 : std::strtoul(head.c_str() + at + sizeof kHeader - 1, nullptr, 10);
}

// Head and body; empty when the client leaves before the end.
std::string read_request(SSL* tls)
{
    std::string request;
    for (std::size_t whole = 0; whole == 0 || request.size() < whole;) {
        char buffer[4096];
        const int count = SSL_read(tls, buffer, sizeof buffer);
        if (count <= 0) return {};
        request.append(buffer, static_cast<std::size_t>(count));
        const std::size_t head = request.find("\r\n\r\n");
        if (head != std::string::npos) whole = head + 4 + content_length(request.substr(0, head));
    }
    return request;
}

void send_answer(SSL* tls, const Answer& answer, bool says_end)
{
    std::string text =
        "HTTP/1.1 " + std::to_string(answer.status) + " Test\r\n" + (says_end ? "Connection: close\r\n" : "") +
        "Content-Length: " + std::to_string(answer.body.size() + (answer.fault == Fault::cut_body ? 1 : 0)) + "\r\n";
    for (const std::string& header : answer.headers)
        text += header + "\r\n";
    text += "\r\n" + answer.body;
    SSL_write(tls, text.data(), static_cast<int>(text.size()));
}

}  // namespace

HttpsServer::HttpsServer(const std::vector<std::string>& names, Signer signer, const std::string& address)
    : m_context(tls_context(names, signer), SSL_CTX_free),
      m_listener(listener_on(address)),
      m_stop(eventfd(0, EFD_CLOEXEC)),
      m_thread([this] { serve(); })
{
    // A client that leaves early ends a write, not the process.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
}

HttpsServer::~HttpsServer()
{
    eventfd_write(m_stop, 1);
    m_thread.join();
    close(m_stop);
    close(m_listener);
}

void HttpsServer::answer(const std::string& request, std::vector<Answer> answers)
{
    const std::lock_guard lock(m_mutex);
    m_answers[request] = std::move(answers);
}

void HttpsServer::keep(Keeping keeping)
{
    const std::lock_guard lock(m_mutex);
    m_keeping = keeping;
}

int HttpsServer::connections() const
{
    const std::lock_guard lock(m_mutex);
    return m_connections;
}

std::vector<std::string> HttpsServer::requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

Answer HttpsServer::next_answer(const std::string& request)
{
    const std::lock_guard lock(m_mutex);
    m_requests.push_back(request);
    const std::size_t end = request.find(' ', request.find(' ') + 1);
    const auto answers = m_answers.find(request.substr(0, end));
    if (answers == m_answers.end()) return {404, "", {}, Fault::none};
    Answer next = answers->second.front();
    if (answers->second.size() > 1) answers->second.erase(answers->second.begin());
    return next;
}

void HttpsServer::serve()
{
    while (wait_for(m_listener, m_stop)) {
        const int connection = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0) continue;
        serve_connection(connection);
        close(connection);
    }
}

void HttpsServer::serve_connection(int connection)
{
    const std::unique_ptr<SSL, void (*)(SSL*)> tls(SSL_new(m_context.get()), SSL_free);
    SSL_set_fd(tls.get(), connection);
    if (SSL_accept(tls.get()) != 1) return;
    for (int number = 1; serve_request(tls.get(), connection, number);)
        ++number;
    SSL_shutdown(tls.get());
}

bool HttpsServer::serve_request(SSL* tls, int connection, int number)
{
    if (number > 1 && !comes_before(connection, m_listener, m_stop)) return false;
    const std::string request = read_request(tls);
    if (request.empty()) return false;
    Keeping keeping;
    {
        const std::lock_guard lock(m_mutex);
        keeping = m_keeping;
        if (number == 1) ++m_connections;
    }
    const bool is_last = number >= keeping.requests;
    const Answer answer = next_answer(request);
    if (answer.fault == Fault::stall) wait_for(connection, m_stop);
    if (answer.fault == Fault::none || answer.fault == Fault::cut_body)
        send_answer(tls, answer, is_last && keeping.is_announced);
    return answer.fault == Fault::none && !is_last;
}
