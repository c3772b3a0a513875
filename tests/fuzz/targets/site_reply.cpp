// Property: a reply to a publish is either a success or gives exactly one sentence, and what a success says reads the
// same when it is written anew with nothing but its host and its names. Whatever the site says has room in the status
// line and turns nothing there.
#include "site/site_reply.h"
#include "flows/publish.h"
#include "fuzz/target.h"
#include "platform/text_conversion.h"
#include "text/ascii.h"
#include "text/json.h"

namespace {

using nlohmann::json;

constexpr char kTypedHost[] = "typed.example";

HttpReply reply_of(std::int32_t status, std::string body)
{
    HttpReply reply;
    reply.status = status;
    reply.body = std::move(body);
    return reply;
}

// The reply as this program needs it: no other member, no element but a string.
json essence(const HttpReply& reply)
{
    const json document = parse_json(reply.body);
    json kept = json::object();
    if (!document.is_object()) return kept;
    kept["host"] = text_member(document, "host");
    kept["aliases"] = json::array();
    const json aliases = document.value("aliases", json());
    for (const json& alias : aliases)
        if (aliases.is_array() && alias.is_string()) kept["aliases"].push_back(alias);
    return kept;
}

void check_success(const HttpReply& reply)
{
    const std::string host = published_host(reply, kTypedHost);
    require(!host.empty() && lower_ascii(host) == host, "a name has a host in lower case");
    const std::string sentence = kept_sentence({true, ""}, "alice", host, reply);
    require(sentence.starts_with("Vaultry kept alice@" + host + ".") && sentence.ends_with('.'),
            "the name and its host stand first");
    require(narrow(widen(sentence)) == sentence, "the sentence is UTF-8");

    const HttpReply again = reply_of(200, compact_json(essence(reply)));
    require(published_host(again, kTypedHost) == host, "the host survives a write and a read");
    require(kept_sentence({true, ""}, "alice", host, again) == sentence, "the names survive a write and a read");
    require(kept_sentence({false, "no"}, "alice", host, reply) == "no", "a name that is not kept has its reason alone");
}

void check_shown(const std::wstring& text)
{
    require(text.size() <= kLongestShown, "a text of the site has room in the status line");
    require(text.find_first_of(L"\r\n\t\x7f\x9b\x200f\x202e\x2066") == std::wstring::npos,
            "it is one line that nobody turns");
    require(text.empty() || (text.front() != L' ' && text.back() != L' '), "no blank stands at its ends");
}

void check(std::string_view bytes)
{
    const std::string body(bytes);
    for (const std::int32_t status : {0, 200, 204, 299, 301, 400, 401, 403, 404, 500}) {
        const HttpReply reply = reply_of(status, body);
        const bool is_success = status >= 200 && status <= 299;
        require(publish_refusal(reply).empty() == is_success, "a success has no refusal, everything else has one");
        require(is_success || plugin_in(reply).plugin == SitePlugin::none, "only a success shows a plugin");
        if (is_success) check_success(reply);
    }
    const std::string message = shown_text(reply_message(body));
    require(message.empty() || publish_refusal(reply_of(500, body)) == message, "the site's message is shown");
    check_shown(widen(message));

    const SitePlugin plugin = plugin_in(reply_of(200, body)).plugin;
    require(plugin_in(reply_of(200, body + R"({"ok":true,"login":"names"})")).plugin == SitePlugin::current,
            "the login mark counts wherever it stands");
    require(plugin != SitePlugin::none || body.find(R"("ok")") == std::string::npos, "an older plugin is seen");
}

const FuzzTarget target("site_reply", check);

}  // namespace
