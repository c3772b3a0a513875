#include "update/build_number.h"

#include "build_values.h"
#include "text/ascii.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <optional>

namespace {

constexpr std::int32_t kThousand = 1000;
constexpr int kFractionDigits = 3;

// Decimal; an empty string is 0. Empty optional when a character is not a digit or the number is above `most`.
std::optional<std::int64_t> number(std::string_view digits, std::int64_t most)
{
    std::int64_t value = 0;
    for (const char c : digits) {
        if (!is_ascii_digit(c)) return std::nullopt;
        value = value * 10 + (c - '0');
        if (value > most) return std::nullopt;
    }
    return value;
}

std::int64_t thousandths(std::string_view fraction)
{
    std::string digits(fraction.substr(0, kFractionDigits));
    digits.erase(std::ranges::find_if_not(digits, is_ascii_digit), digits.end());
    digits.resize(kFractionDigits, '0');
    return number(digits, kThousand).value_or(0);
}

bool is_between_key_and_number(char c)
{
    return c == ' ' || c == ':' || c == '=';
}

bool is_part_of_number(char c)
{
    return is_ascii_digit(c) || c == '.';
}

// The digits and dots at the start of `text`, after blanks, ":" and "=".
std::string_view leading_version(std::string_view text)
{
    text.remove_prefix(
        static_cast<std::size_t>(std::ranges::find_if_not(text, is_between_key_and_number) - text.begin()));
    return text.substr(0, static_cast<std::size_t>(std::ranges::find_if_not(text, is_part_of_number) - text.begin()));
}

}  // namespace

std::int32_t build_of_version(std::string_view version)
{
    constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
    const std::size_t dot = version.find('.');
    if (dot == std::string_view::npos) return kNoBuild;
    const auto whole = number(version.substr(0, dot), kLargest / kThousand);
    if (!whole) return kNoBuild;
    const std::int64_t build = *whole * kThousand + thousandths(version.substr(dot + 1));
    return build > kLargest ? kNoBuild : static_cast<std::int32_t>(build);
}

std::int32_t build_on_page(std::string_view page)
{
    std::int32_t found = kNoBuild;
    for (const std::string_view key : {"Current build", "Version"}) {
        for (std::size_t at = page.find(key); at != std::string_view::npos; at = page.find(key, at + key.size())) {
            const std::int32_t build = build_of_version(leading_version(page.substr(at + key.size())));
            if (build != kNoBuild) found = build;
        }
    }
    return found;
}

std::string version_of_build(std::int32_t build)
{
    char text[32] = {};
    const std::int32_t whole = build / kThousand;
    static_cast<void>(std::snprintf(text, sizeof text, "%d.%03d", whole, build - whole * kThousand));
    return text;
}

std::string version_text(bool update_is_available)
{
    if (update_is_available) return std::string("Update available, ") + kMakersPage;
    return "Version " + version_of_build(kOwnBuild);
}
