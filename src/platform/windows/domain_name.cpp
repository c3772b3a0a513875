#include "platform/domain_name.h"

#include "platform/text_conversion.h"

#include <windows.h>

namespace {

constexpr int kLongestDomain = 255;  // characters (RFC 1035)

}  // namespace

std::optional<std::string> domain_to_ascii(std::string_view domain)
{
    const std::wstring wide = widen(domain);
    wchar_t ascii[kLongestDomain + 1];
    const int length = IdnToAscii(0, wide.data(), static_cast<int>(wide.size()), ascii, kLongestDomain);
    if (length <= 0) return std::nullopt;
    return narrow({ascii, static_cast<std::size_t>(length)});
}
