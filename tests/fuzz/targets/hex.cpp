// Property: bytes survive being encoded and decoded, and an accepted text encodes back to itself in small letters.
#include "text/ascii.h"

#include "fuzz/target.h"

namespace {

void check(std::string_view text)
{
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    require(hex_decode(hex_encode(bytes)) == bytes, "bytes survive being encoded and decoded");
    const auto decoded = hex_decode(text);
    require(decoded.empty() || hex_encode(decoded) == lower_ascii(text), "an accepted text encodes back to itself");
}

const FuzzTarget target("hex", check);

}  // namespace
