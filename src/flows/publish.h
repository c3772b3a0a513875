// Publishing a name on the user's site.
#pragma once

#include "paymail/verification.h"
#include "settings/settings_store.h"
#include "site/site_request.h"

#include <functional>
#include <string>

// The sentence for a reply that is not a success; empty when the site took the name.
[[nodiscard]] std::string publish_refusal(const HttpReply& reply);

// The reply's "host", or `typed_host` when it has none, in its ASCII form.
std::string published_host(const HttpReply& reply, const std::string& typed_host);

// The last sentence of a publish: the verifier's message, or that the name is kept and which others the site has.
[[nodiscard]] std::string kept_sentence(const Verification& verification, const std::string& alias,
                                        const std::string& host, const HttpReply& reply);

// Publishes settings.alias for the connected wallet, proves from outside that it resolves, keeps it, tells `on_kept`
// the payname and the wallet application that there is one, and returns the sentence for the user. Blocks on the
// network; worker threads only.
[[nodiscard]] std::string publish_sentence(
    const SiteSettings& settings, const std::function<void(const std::string& payname)>& on_kept = [](const auto&) {});
