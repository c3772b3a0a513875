#include "site/site_reply.h"

#include "net/url_host.h"
#include "platform/text_conversion.h"
#include "site/site_request.h"
#include "text/json.h"

#include <algorithm>

PluginStatus plugin_on_site(const std::string& base)
{
    return plugin_in(site_request({"GET", base + "/wp-json/brasslet/v1/status", {}, {{}, {}}}));
}

PluginStatus plugin_in(const HttpReply& status_reply)
{
    if (!status_reply.is_success()) return {};
    const std::string host = ascii_host(text_member(parse_json(status_reply.body), "host"));
    if (status_reply.body.find(R"("login":"names")") != std::string::npos) return {SitePlugin::current, host};
    const bool is_plugin = status_reply.body.find(R"("ok")") != std::string::npos;
    return {is_plugin ? SitePlugin::outdated : SitePlugin::none, host};
}

namespace {

constexpr wchar_t kEllipsis = 0x2026;

struct Range {
    wchar_t first;
    wchar_t last;
};

bool is_in(wchar_t c, std::initializer_list<Range> ranges)
{
    return std::any_of(ranges.begin(), ranges.end(), [c](Range range) { return c >= range.first && c <= range.last; });
}

// Unicode's property White_Space.
bool is_blank(wchar_t c)
{
    return is_in(c, {{0x0009, 0x000D},
                     {0x0020, 0x0020},
                     {0x0085, 0x0085},
                     {0x00A0, 0x00A0},
                     {0x1680, 0x1680},
                     {0x2000, 0x200A},
                     {0x2028, 0x2029},
                     {0x202F, 0x202F},
                     {0x205F, 0x205F},
                     {0x3000, 0x3000}});
}

// Unicode's categories Cc (control) and Cf (format). Without joiners a text stays readable.
bool is_unseen(wchar_t c)
{
    return is_in(c, {{0x0000, 0x001F},
                     {0x007F, 0x009F},
                     {0x00AD, 0x00AD},
                     {0x061C, 0x061C},
                     {0x180E, 0x180E},
                     {0x200B, 0x200F},
                     {0x202A, 0x202E},
                     {0x2060, 0x206F},
                     {0xFEFF, 0xFEFF},
                     {0xFFF9, 0xFFFB}});
}

bool is_first_of_pair(wchar_t c)
{
    return is_in(c, {{0xD800, 0xDBFF}});
}

}  // namespace

std::string shown_text(std::string_view text)
{
    std::wstring shown;
    bool is_apart = false;  // a blank is due before the next character
    for (const wchar_t c : widen(text)) {
        if (is_blank(c)) {
            is_apart = !shown.empty();
        } else if (!is_unseen(c)) {
            if (is_apart) shown += L' ';
            is_apart = false;
            shown += c;
        }
    }
    if (shown.size() <= kLongestShown) return narrow(shown);
    shown.resize(kLongestShown - 1);
    if (is_first_of_pair(shown.back())) shown.pop_back();
    return narrow(shown + kEllipsis);
}

namespace {

struct Refusal {
    const char* code;  // WordPress error code, looked for anywhere in the body
    const char* sentence;
};

constexpr char kWrongPassword[] = "WordPress refused that application password.";

// WordPress saw no login: the host strips the Authorization header and the plugin is too old to read the other one.
constexpr char kLoginHidden[] = "The site hid the login. Press Install plugin and upload the zip over the old one.";

constexpr Refusal kRefusals[] = {
    {"incorrect_password", kWrongPassword},
    {"invalid_username", "WordPress does not know that user. Use the username from the profile page."},
    {"rest_not_logged_in", kLoginHidden},
    {"rest_forbidden", kLoginHidden},
};

}  // namespace

std::string reply_message(const std::string& body)
{
    return text_member(parse_json(body), "message");
}

std::string sent_on_message(const HttpReply& reply)
{
    if (reply.redirect_url.empty()) return {};
    const std::string sent_on = "The site sends on to " + shown_text(ascii_host(url_host(reply.redirect_url)));
    if (!is_same_site(reply.redirect_url, reply.redirect_url))
        return sent_on + ", away from https on port 443. Ask your host to keep it there.";
    return sent_on + ". Type that site in settings.";
}

std::string refusal_message(const HttpReply& reply)
{
    if (reply.status != 401 && reply.status != 403) return {};
    for (const Refusal& refusal : kRefusals)
        if (reply.body.find(refusal.code) != std::string::npos) return refusal.sentence;
    const std::string message = shown_text(reply_message(reply.body));
    return message.empty() ? kWrongPassword : message;
}

std::string change_refusal(const HttpReply& reply)
{
    std::string sent_on = sent_on_message(reply);
    if (!sent_on.empty()) return sent_on;
    std::string refusal = refusal_message(reply);
    if (!refusal.empty()) return refusal;
    return reply.status == 404 ? "Install the plugin first." : "";
}
