#include "wallet/extended_key.h"

#include "wallet/digest.h"
#include "wallet/secp256k1.h"

#include <algorithm>

namespace {

using ChildData = WipedBuffer<37>;  // a key in 33 bytes, then the index

// A hardened child comes from the private key, behind a zero byte; any other from the compressed public key.
bool put_key(const ExtendedKey& parent, bool is_hardened, ChildData& data)
{
    if (is_hardened) {
        std::copy_n(parent.private_key.data(), parent.private_key.size(), data.data() + 1);
        return true;
    }
    const auto public_key = public_key_of(parent.private_key.bytes());
    if (public_key) std::copy(public_key->begin(), public_key->end(), data.data());
    return public_key.has_value();
}

void put_index(std::uint32_t index, ChildData& data)
{
    for (std::size_t i = 0; i < 4; ++i)
        data.data()[33 + i] = static_cast<std::uint8_t>(index >> (24 - 8 * i));
}

WipedBuffer<32> half(std::span<const std::uint8_t, 32> bytes)
{
    WipedBuffer<32> copy;
    std::copy(bytes.begin(), bytes.end(), copy.data());
    return copy;
}

}  // namespace

std::optional<ExtendedKey> master_key(std::span<const std::uint8_t> seed)
{
    const auto code = hmac_sha512(bytes_of("Bitcoin seed"), seed);
    if (!code) return std::nullopt;
    return ExtendedKey{half(code->bytes().first<32>()), half(code->bytes().last<32>())};
}

std::optional<ExtendedKey> derive_child(const ExtendedKey& parent, std::uint32_t index)
{
    ChildData data;
    if (!put_key(parent, index >= kHardened, data)) return std::nullopt;
    put_index(index, data);
    const auto code = hmac_sha512(parent.chain_code.bytes(), data.bytes());
    if (!code) return std::nullopt;
    auto child = tweaked_key(code->bytes().first<32>(), parent.private_key.bytes());
    if (!child) return std::nullopt;
    return ExtendedKey{std::move(*child), half(code->bytes().last<32>())};
}
