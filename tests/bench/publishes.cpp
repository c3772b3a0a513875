// Times Publish in the running program's window, from the press to the sentence, against the requests of a publish sent
// by bare libcurl calls: the same method, address, headers and body, one after the other, a fresh handle and so a fresh
// connection for each; the program asks what payers ask on one connection. bench_publishes PAIRS SITE USER ALIAS KEY
// ADDRESS; the application password comes on standard input.
#include "app/windows/controls.h"
#include "bench/pairs.h"
#include "bench/require.h"
#include "net/chain_service.h"
#include "net/http_exchange.h"
#include "paymail/discovery.h"
#include "site/site_request.h"
#include "text/clock.h"
#include "text/json.h"

#include <windows.h>
#include <curl/curl.h>

#include <exception>
#include <future>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr int kPatience = 60'000;  // milliseconds

std::size_t take(const char* bytes, std::size_t, std::size_t count, void* body)
{
    static_cast<std::string*>(body)->append(bytes, count);
    return count;
}

void send(const HttpRequest& request)
{
    CURL* const handle = curl_easy_init();
    curl_slist* headers = nullptr;
    for (const SecretText& header : request.headers)
        headers = curl_slist_append(headers, header.text().c_str());
    std::string body;
    curl_easy_setopt(handle, CURLOPT_URL, request.url.c_str());
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers);
    curl_easy_setopt(handle, CURLOPT_USERAGENT, request.user_agent.c_str());
    if (!request.body.empty()) curl_easy_setopt(handle, CURLOPT_POSTFIELDS, request.body.text().c_str());
    if (!request.credentials.empty()) curl_easy_setopt(handle, CURLOPT_USERPWD, request.credentials.text().c_str());
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, take);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &body);
    const CURLcode code = curl_easy_perform(handle);
    long status = 0;
    curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status);
    curl_slist_free_all(headers);
    curl_easy_cleanup(handle);
    require(code == CURLE_OK && status == 200, request.url.c_str());
}

struct Publish {
    std::string site;  // https://host
    std::string user;
    SecretText password;
    std::string alias;
    std::string key;
    std::string address;
};

std::vector<HttpRequest> requests_of(const Publish& publish)
{
    const std::string rest = publish.site + "/wp-json/brasslet/v1";
    const auto patience = std::chrono::seconds(12);
    const SecretText body(compact_json({{"address", publish.address},
                                        {"alias", publish.alias},
                                        {"house", ""},
                                        {"login_pass", publish.password.text()},
                                        {"login_user", publish.user},
                                        {"pubkey", publish.key}}));
    const std::string question = compact_json({{"senderName", "payname"},
                                               {"senderHandle", "payname"},
                                               {"dt", milliseconds_since_epoch()},
                                               {"amount", 1},
                                               {"purpose", "payment"}});
    return {describe_site_request({"GET", rest + "/status", SecretText(), {"", SecretText()}}),
            describe_site_request({"POST", rest + "/name", body, {publish.user, publish.password}}),
            discovery_request(publish.site + "/.well-known/bsvalias", patience),
            discovery_request(rest + "/id/" + publish.alias, patience),
            json_post({rest + "/address/" + publish.alias, question, patience, 1})};
}

HWND control(int id)
{
    const HWND window = FindWindowW(L"CorvaneBrassletShell", nullptr);
    require(window != nullptr, "the program does not run");
    return GetDlgItem(window, id);
}

// As the user reads it; the program is not asked, and so hardly disturbed.
std::wstring status(HWND line)
{
    wchar_t text[1024] = {};
    InternalGetWindowText(line, text, static_cast<int>(std::size(text)));
    return text;
}

// The floor and the program are watched in the same way: a processor that is awake makes both quicker.
template <typename Condition>
void wait_until(Condition is_so)
{
    const ULONGLONG end = GetTickCount64() + kPatience;
    while (!is_so()) {
        require(GetTickCount64() < end, "no end in sight");
        Sleep(1);
    }
}

void send_all(const Publish& publish)
{
    auto sending = std::async(std::launch::async, [&publish] {
        for (const HttpRequest& request : requests_of(publish))
            send(request);
    });
    wait_until([&sending] { return sending.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
    sending.get();
}

void press_publish(HWND button, HWND line)
{
    PostMessageW(button, BM_CLICK, 0, 0);
    wait_until([line] { return !status(line).empty(); });
}

void time_publishes(int pairs, const Publish& publish)
{
    const CurlLifetime curl;
    const HWND button = control(kPublishButton);
    const HWND line = control(kStatusLine);
    for (int pair = -1; pair < pairs; ++pair) {
        const double floor_time = microseconds_of([&publish] { send_all(publish); });
        SendMessageW(line, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L""));
        const double own_time = microseconds_of([=] { press_publish(button, line); });
        require(status(line).starts_with(L"Vaultry kept "), "the name was not kept");
        if (pair >= 0) print_pair("publish", floor_time, own_time);
    }
}

}  // namespace

int main(int count, char** words)
{
    if (count != 7) return 2;
    std::string password;
    std::getline(std::cin, password);
    if (password.ends_with('\r')) password.pop_back();
    try {
        time_publishes(std::stoi(words[1]),
                       {words[2], words[3], SecretText(std::move(password)), words[4], words[5], words[6]});
    } catch (const std::exception& error) {
        std::cerr << "bench_publishes: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
