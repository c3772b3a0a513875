// A site with the current plugin, as its owner has it in the settings, and what WordPress refuses.
#pragma once

#include "kit/wire/https_server.h"
#include "settings/settings_store.h"

#include <string>
#include <vector>

inline constexpr char kStatusPath[] = "GET /wp-json/brasslet/v1/status";
inline constexpr char kCurrentPlugin[] = R"({"ok":true,"login":"names"})";

// alice on brasslet.test.
SiteSettings owners_settings();

// The head of a request carries the login of owners_settings(), in both of its headers.
void expect_login_in(const std::string& request);

// The question for the plugin, which carries none.
void expect_status_question(const std::string& request);

struct Refusal {
    Answer reply;
    std::string sentence;
};

// What WordPress says to a login that may not change names; every flow that sends a login says the same of it.
const std::vector<Refusal>& refused_logins();
