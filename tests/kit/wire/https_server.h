// A real HTTPS server on loopback, in the test's own process, that misbehaves on demand.
#pragma once

#include "kit/wire/certificate.h"

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

enum class Fault {
    none,
    stall,     // takes the request and says nothing until the client gives up
    hang_up,   // takes the request and closes
    cut_body,  // closes one byte before the announced end
};

struct Answer {
    int status = 200;
    std::string body;
    std::vector<std::string> headers;  // "Name: value"
    Fault fault = Fault::none;
};

inline Answer redirect_to(const std::string& url, int status = 302)
{
    return {status, "moved", {"Location: " + url}, Fault::none};
}

// The names of every host that tests reach on 127.0.0.1.
inline const std::vector<std::string> kTestNames = {"brasslet.test", "www.brasslet.test", "pay.brasslet.test",
                                                    "localhost.example.org", "xn--bcher-kva.test"};

// A socket that listens on `port` of `address`. Owned by the caller.
int listener_on(const std::string& address, std::uint16_t port = 443);

// How many requests a connection takes, and whether the answer to the last one says that it ends.
struct Keeping {
    int requests = 1;
    bool is_announced = true;
};

class HttpsServer {
public:
    // Listens on port 443 of `address`; one connection at a time, one request in each unless keep() says otherwise. A
    // connection that is kept makes room for the next one.
    explicit HttpsServer(const std::vector<std::string>& names = kTestNames, Signer signer = Signer::test_authority,
                         const std::string& address = "127.0.0.1");
    HttpsServer(const HttpsServer&) = delete;
    HttpsServer& operator=(const HttpsServer&) = delete;
    ~HttpsServer();

    // The answers to `request`, a method and a path as in "GET /x": one after the other, the last again and again. A
    // request that has none gets a 404 without a body.
    void answer(const std::string& request, std::vector<Answer> answers);
    void answer(const std::string& request, const Answer& one) { answer(request, std::vector<Answer>{one}); }

    void keep(Keeping keeping);

    std::vector<std::string> requests() const;  // head and body as they came in
    int connections() const;                    // in which a request came in

private:
    void serve();
    void serve_connection(int connection);
    bool serve_request(SSL* tls, int connection, int number);  // true when another may follow
    Answer next_answer(const std::string& request);

    std::unique_ptr<SSL_CTX, void (*)(SSL_CTX*)> m_context;
    int m_listener = -1;
    int m_stop = -1;  // becomes readable when the server is to stop
    mutable std::mutex m_mutex;
    Keeping m_keeping;
    int m_connections = 0;
    std::map<std::string, std::vector<Answer>> m_answers;
    std::vector<std::string> m_requests;
    std::thread m_thread;
};
