// What the program says about its own version.
#pragma once

#include "update/version.h"

#include <cstdint>
#include <string>

inline constexpr std::int32_t kOwnBuild = BRASSLET_BUILD;

// The text of the version label: the own version, or where a newer one is to be had.
std::string version_text(bool update_is_available);
