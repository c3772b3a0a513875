// Build numbers, in thousandths of a version (build 1234 is version 1.234).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

inline constexpr std::int32_t kNoBuild = -1;

// The build number of a version string: only digits before the first "." (none means 0), then up to three digits as
// thousandths; the rest is ignored ("0.1" is 100, ".5" is 500). kNoBuild for a string without ".", or with a build
// number that does not fit into 32 bits.
std::int32_t build_of_version(std::string_view version);

// The build number that a page announces after "Current build" or "Version", or kNoBuild. The last valid number wins;
// one after "Version" wins over all after "Current build".
std::int32_t build_on_page(std::string_view page);

// "1.234" of 1234.
std::string version_of_build(std::int32_t build);

// The text of the version label: the program's version, or the page that offers a newer one.
std::string version_text(bool update_is_available);
