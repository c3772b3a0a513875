#include "net/chain_service.h"

#include <string_view>
#include <thread>

namespace {

constexpr std::int32_t kTooManyRequests = 429;
constexpr std::chrono::milliseconds kFirstPause{400};
constexpr std::size_t kShownBody = 120;  // bytes
constexpr char kRateLimited[] =
    "HTTP 429 \xe2\x80\x93 WhatsOnChain is rate-limiting. Wait a few seconds and try again.";

bool is_page(std::string_view body)
{
    for (const std::string_view mark : {"<html", "<HTML", "<!DOCTYPE"})
        if (body.find(mark) != std::string_view::npos) return true;
    return false;
}

}  // namespace

void sleep_for(std::chrono::milliseconds time)
{
    std::this_thread::sleep_for(time);
}

HttpRequest json_post(const JsonPost& post)
{
    HttpRequest request;
    request.url = post.url;
    request.method = "POST";
    request.headers.emplace_back("Content-Type: application/json");
    request.body = SecretText(post.body);
    request.user_agent = kWalletAgent;
    request.connect_timeout = std::chrono::seconds(8);
    request.transfer_timeout = post.timeout;
    request.pin_wallet_service = true;
    return request;
}

HttpReply post_json(const JsonPost& post, const Pause& pause)
{
    HttpReply reply;
    reply.error = kRateLimited;
    const HttpRequest request = json_post(post);
    std::chrono::milliseconds pause_time = kFirstPause;
    for (int attempt = 1; attempt <= post.attempts; ++attempt) {
        reply = exchange(request);
        if (!reply.error.empty()) return reply;
        if (reply.status >= 200 && reply.status <= 299) return reply;
        reply.error = service_error(reply.status, reply.body);
        if (reply.status != kTooManyRequests || attempt == post.attempts) return reply;
        pause(pause_time);
        pause_time *= 2;
    }
    return reply;
}

std::string service_error(std::int32_t status, const std::string& body)
{
    if (status == kTooManyRequests) return kRateLimited;
    std::string line = "HTTP " + std::to_string(status);
    if (body.empty() || is_page(body)) return line;
    const std::size_t end = body.find_last_not_of("\n\r ") + 1;
    return line + " \xe2\x80\x93 " + body.substr(0, end).substr(0, kShownBody);
}
