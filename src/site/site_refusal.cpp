#include "site/site_refusal.h"

#include "net/url_host.h"
#include "site/shown_text.h"
#include "text/json.h"

namespace {

struct Refusal {
    const char* code;  // WordPress error code, looked for anywhere in the body
    const wchar_t* sentence;
};

constexpr wchar_t kWrongPassword[] = L"WordPress refused that application password.";

// A site that never saw the login runs a plugin that cannot read the second header: uploading the new one helps.
constexpr wchar_t kLoginHidden[] = L"The site hid the login. Press Install plugin and upload the zip over the old one.";

constexpr Refusal kRefusals[] = {
    {"incorrect_password", kWrongPassword},
    {"invalid_username", L"WordPress does not know that user. Use the username from the profile page."},
    {"rest_not_logged_in", kLoginHidden},
    {"rest_forbidden", kLoginHidden},
};

}  // namespace

std::string reply_message(const std::string& body)
{
    return text_member(parse_json(body), "message");
}

std::wstring sent_on_message(const HttpReply& reply)
{
    if (reply.redirect_url.empty()) return {};
    const std::wstring sent_on = L"The site sends on to " + shown_text(ascii_host(url_host(reply.redirect_url)));
    if (!is_same_site(reply.redirect_url, reply.redirect_url))
        return sent_on + L", away from https on port 443. Ask your host to keep it there.";
    return sent_on + L". Type that site in settings.";
}

std::wstring refusal_message(const HttpReply& reply)
{
    if (reply.status != 401 && reply.status != 403) return {};
    for (const Refusal& refusal : kRefusals)
        if (reply.body.find(refusal.code) != std::string::npos) return refusal.sentence;
    const std::wstring message = shown_text(reply_message(reply.body));
    return message.empty() ? kWrongPassword : message;
}
