// What the replies of the user's site say: which plugin answers, and in which words a request was refused.
#pragma once

#include "net/http_exchange.h"

#include <cstddef>
#include <string>
#include <string_view>

enum class SitePlugin {
    none,      // no plugin, or no reply
    outdated,  // its "login" is not "names": it takes the login from headers alone
    current,
};

struct PluginStatus {
    SitePlugin plugin = SitePlugin::none;
    std::string host;  // the domain of the site's names, in its ASCII form; empty when the reply has none
};

// Asks the site at `base` (of a SiteAddress), without credentials. Blocks until the exchange ends; worker threads only.
[[nodiscard]] PluginStatus plugin_on_site(const std::string& base);

// Reads the reply of the status route.
PluginStatus plugin_in(const HttpReply& status_reply);

// UTF-16 code units of a string from the site: as many wide characters as fit into the three lines of the status line
// at the window's smallest size.
inline constexpr std::size_t kLongestShown = 160;

// `text` as one line for the status line: without control and format characters (invisible ones, and those that
// change the direction of the text around them), with runs of white space as one blank and none at the ends. A text
// longer than kLongestShown is cut and ends in an ellipsis (U+2026).
std::string shown_text(std::string_view text);

// The "message" of a WordPress error; empty when the body is not a JSON object with one.
std::string reply_message(const std::string& body);

// The sentence for a redirect that a request with a login did not follow; empty for every other reply.
[[nodiscard]] std::string sent_on_message(const HttpReply& reply);

// The sentence for a request that was refused (401 or 403); empty for every other status.
[[nodiscard]] std::string refusal_message(const HttpReply& reply);

// The sentence for a publish or remove that was redirected, refused, or answered by a site without the plugin (404);
// empty for every other reply.
[[nodiscard]] std::string change_refusal(const HttpReply& reply);

inline constexpr char kInstallCurrentPlugin[] = "Press Install plugin and upload the zip over the one on the site.";
