// Protection of a secret for the current Windows user (Data Protection API, no extra entropy, no prompt).
#pragma once

#include "text/secret.h"

#include <optional>
#include <string>
#include <string_view>

// The protected form, or empty when protection failed.
std::optional<std::string> protect_for_user(const SecretText& secret);

// The secret, or empty when these bytes were not protected by this user on this PC.
std::optional<SecretText> unprotect_for_user(std::string_view bytes);
