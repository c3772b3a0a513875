// What the site's answer to a publish call means, and the sentences made of it. Pure functions.
#pragma once

#include "paymail/verification.h"
#include "site/site_request.h"

#include <string>

// The sentence for an answer that is no success; empty when the site took the name.
std::wstring publish_refusal(const HttpReply& reply);

// The host that the site calls its own, or `typed_host` when it names none, in the ASCII form that wallets ask for.
std::string published_host(const HttpReply& reply, const std::string& typed_host);

// The last sentence of a publish: the verifier's, or that the name is kept and which others the site still has.
std::wstring kept_sentence(const Verification& verification, const std::string& alias, const std::string& host,
                           const HttpReply& reply);
