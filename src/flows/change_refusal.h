// What publishing and removing a name say alike when the site does not let them.
#pragma once

#include "site/site_request.h"

#include <string>

inline constexpr wchar_t kInstallCurrentPlugin[] = L"Press Install plugin and upload the zip over the one on the site.";

// The sentence for an answer that sends the login on to another host, refuses it, or comes from a site without the
// plugin; empty for every other one.
std::wstring change_refusal(const HttpReply& reply);
