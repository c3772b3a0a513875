#include "platform/dns.h"

#include "text/freed_by.h"

#include <idn2.h>

#include <memory>

std::optional<std::string> domain_to_ascii(std::string_view domain)
{
    char* ascii = nullptr;
    const int code = idn2_to_ascii_8z(std::string(domain).c_str(), &ascii, IDN2_NFC_INPUT | IDN2_NONTRANSITIONAL);
    const std::unique_ptr<char, FreedBy<idn2_free>> owner(ascii);
    if (code != IDN2_OK) return std::nullopt;
    return ascii;
}
