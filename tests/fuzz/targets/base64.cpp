// Property: bytes survive being encoded and decoded, and characters outside of the alphabet make no difference to what
// is decoded.
#include "text/ascii.h"

#include "fuzz/target.h"

namespace {

void check(std::string_view bytes)
{
    const std::string text = base64_encode(bytes);
    require(base64_decode(text) == bytes, "bytes survive being encoded and decoded");
    require(text.size() == (bytes.size() + 2) / 3 * 4, "the text is padded");

    std::string plain(bytes);
    std::erase_if(plain, [](char c) { return !is_ascii_letter(c) && !is_ascii_digit(c) && c != '+' && c != '/'; });
    const std::string decoded = base64_decode(bytes);
    require(base64_decode(plain) == decoded, "other characters make no difference");
    require(decoded.size() == plain.size() * 6 / 8, "every whole byte is decoded");
}

const FuzzTarget target("base64", check);

}  // namespace
