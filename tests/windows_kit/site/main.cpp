// The site of the kit: kit_site.exe RECORDINGS. A proxy on the loopback interface that plays every host of the kit by
// itself, so that neither names nor ports of the machine are needed. Prints
//
//   port NUMBER
//
// and takes orders, a line each, until its input ends, which it does with the program that gave them, however that
// ends. It answers every order with lines, of which "." is the last:
//
//   trust            has the user trust its authority until its input ends; prints Windows' error, 0 when it is
//   state NAME       what the site has by now: "bare", "plugin" (uploaded and active), "published" (a name as well)
//   page TEXT        the maker's page
//   heard            prints what came; see site.h
//   forget           what came so far
//
// kit_site.exe --clean takes away the authorities of runs that were cut short, and prints their number.
#include "windows_kit/site/certificates.h"
#include "windows_kit/site/connection.h"
#include "windows_kit/site/site.h"
#include "windows_kit/site/trust.h"

#include <cstdio>
#include <iostream>
#include <string>
#include <thread>

namespace {

SOCKET listen_on_loopback(unsigned& port)
{
    WSADATA ignored{};
    if (WSAStartup(MAKEWORD(2, 2), &ignored) != 0) return INVALID_SOCKET;
    const SOCKET listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    int size = sizeof address;
    if (bind(listener, plain, size) != 0 || listen(listener, 16) != 0 || getsockname(listener, plain, &size) != 0)
        return INVALID_SOCKET;
    port = ntohs(address.sin_port);
    return listener;
}

void obey(const std::string& order, Site& site, const Authority& authority)
{
    const std::string word = order.substr(0, order.find(' '));
    const std::string rest = order.size() > word.size() ? order.substr(word.size() + 1) : "";
    if (word == "trust") std::printf("%lu\n", trust(der_of(authority.certificate)));
    if (word == "state") site.set_state(rest);
    if (word == "page") site.set_makers_page(rest);
    if (word == "forget") site.forget();
    if (word == "heard")
        for (const std::string& line : site.heard())
            std::printf("%s\n", line.c_str());
    std::printf(".\n");
    std::fflush(stdout);
}

}  // namespace

int main(int count, char** arguments)
{
    if (count != 2) return 2;
    if (std::string(arguments[1]) == "--clean") {
        std::printf("%d\n", take_authorities_away());
        return 0;
    }
    unsigned port = 0;
    const SOCKET listener = listen_on_loopback(port);
    if (listener == INVALID_SOCKET) return 3;
    const Authority authority = make_authority(kAuthorityName);
    const auto hosts = make_hosts(authority);
    Site site(read_recordings(arguments[1]));
    std::thread([&] {
        for (;;) {
            const SOCKET caller = accept(listener, nullptr, nullptr);
            if (caller != INVALID_SOCKET) std::thread([&, caller] { serve(caller, hosts, site); }).detach();
        }
    }).detach();
    std::printf("port %u\n", port);
    std::fflush(stdout);
    for (std::string order; std::getline(std::cin, order);)
        obey(order, site, authority);
    take_authorities_away();
    std::_Exit(0);  // callers that wait are left waiting
}
