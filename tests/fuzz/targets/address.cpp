// Property: an accepted address encodes back to itself, byte for byte, and so does any text of the Base58 alphabet.
#include "wallet/address.h"

#include "fuzz/target.h"

namespace {

constexpr std::size_t kLongestNumber = 200;  // characters: decoding takes the square of the length

void check(std::string_view text)
{
    if (const auto hash = hash160_from_address(text))
        require(address_from_hash160(*hash) == text, "an accepted address encodes back to itself");
    if (const auto number = base58_decode(text.substr(0, kLongestNumber)))
        require(base58_encode(*number) == text.substr(0, kLongestNumber),
                "what is decoded from Base58 encodes back to itself");

    const std::string address = address_from_public_key(text);
    require(address.empty() || hash160_from_address(address).has_value(), "an address that is made is accepted");
}

const FuzzTarget target("address", check);

}  // namespace
