// Build numbers, in thousandths of a version: build 1 is version 0.001.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

inline constexpr std::int32_t kNoBuild = -1;

// The build number of a version text, or kNoBuild. Up to the first "." only digits may stand, none meaning 0; of what
// follows, up to three digits count as thousandths, and the rest is ignored ("0.1" is 100, ".5" is 500). A text without
// a "." is no version, and neither is one whose build number does not fit into 32 bits.
std::int32_t build_of_version(std::string_view version);

// The build number that a page announces after "Current build" or "Version", or kNoBuild. The last valid number counts,
// and any after "Version" counts more than all after "Current build".
std::int32_t build_on_page(std::string_view page);

// "0.001" of 1.
std::string version_of_build(std::int32_t build);
