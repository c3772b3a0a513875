#include "wallet/extended_key.h"

#include "text/freed_by.h"

#include "wallet/digest.h"

#include <openssl/bn.h>
#include <openssl/ec.h>
#include <openssl/obj_mac.h>

#include <algorithm>
#include <memory>

namespace {

using Number = std::unique_ptr<BIGNUM, FreedBy<BN_clear_free>>;
using Scratch = std::unique_ptr<BN_CTX, FreedBy<BN_CTX_free>>;
using Point = std::unique_ptr<EC_POINT, FreedBy<EC_POINT_clear_free>>;

// The curve's parameters, made once: to make them takes longer than a hardened step. They are public and from then on
// only read, so all threads share them; scratch space, which holds what is computed from a key, is every call's own.
// Null when libcrypto had no memory for them. Never freed: a worker may be deriving when the process ends.
const EC_GROUP* secp256k1()
{
    static const EC_GROUP* const group = EC_GROUP_new_by_curve_name(NID_secp256k1);
    return group;
}

Number number_from(std::span<const std::uint8_t, 32> bytes)
{
    Number number(BN_bin2bn(bytes.data(), static_cast<int>(bytes.size()), nullptr));
    if (number) BN_set_flags(number.get(), BN_FLG_CONSTTIME);
    return number;
}

}  // namespace

std::optional<PublicKey> public_key_of(std::span<const std::uint8_t, 32> private_key)
{
    const EC_GROUP* const curve = secp256k1();
    if (curve == nullptr) return std::nullopt;
    const Number secret = number_from(private_key);
    const Scratch scratch(BN_CTX_new());
    const Point point(EC_POINT_new(curve));
    if (!secret || !scratch || !point) return std::nullopt;
    if (BN_is_zero(secret.get()) || BN_cmp(secret.get(), EC_GROUP_get0_order(curve)) >= 0) return std::nullopt;

    PublicKey compressed{};
    if (EC_POINT_mul(curve, point.get(), secret.get(), nullptr, nullptr, scratch.get()) != 1 ||
        EC_POINT_point2oct(curve, point.get(), POINT_CONVERSION_COMPRESSED, compressed.data(), compressed.size(),
                           scratch.get()) != compressed.size()) {
        return std::nullopt;
    }
    return compressed;
}

std::optional<WipedBuffer<32>> tweaked_key(std::span<const std::uint8_t, 32> tweak,
                                           std::span<const std::uint8_t, 32> key)
{
    const EC_GROUP* const curve = secp256k1();
    if (curve == nullptr) return std::nullopt;
    const BIGNUM* const order = EC_GROUP_get0_order(curve);
    const Number addend = number_from(tweak);
    const Number parent = number_from(key);
    const Number sum(BN_new());
    const Scratch scratch(BN_CTX_new());
    if (!addend || !parent || !sum || !scratch) return std::nullopt;
    if (BN_cmp(addend.get(), order) >= 0) return std::nullopt;
    if (BN_mod_add(sum.get(), addend.get(), parent.get(), order, scratch.get()) != 1 || BN_is_zero(sum.get()))
        return std::nullopt;
    WipedBuffer<32> child;
    if (BN_bn2binpad(sum.get(), child.data(), static_cast<int>(child.size())) != static_cast<int>(child.size())) {
        return std::nullopt;
    }
    return child;
}

namespace {

using ChildData = WipedBuffer<37>;  // a key in 33 bytes, then the index

// BIP32: 0x00 and the private key for a hardened child, the compressed public key for any other.
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
