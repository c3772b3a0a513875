// EC_KEY is deprecated; its replacement, EVP_PKEY, cannot compute the public key of a private key.
#define OPENSSL_SUPPRESS_DEPRECATED
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
using Key = std::unique_ptr<EC_KEY, FreedBy<EC_KEY_free>>;
using Point = std::unique_ptr<EC_POINT, FreedBy<EC_POINT_free>>;

// Curve parameters and scratch space; not usable when an allocation failed.
struct Curve {
    Scratch scratch{BN_CTX_new()};
    Key key{EC_KEY_new_by_curve_name(NID_secp256k1)};
    const EC_GROUP* group = key ? EC_KEY_get0_group(key.get()) : nullptr;
    Number order{BN_new()};
    bool is_usable = scratch && group != nullptr && order && EC_GROUP_get_order(group, order.get(), scratch.get()) == 1;
};

Number number_from(std::span<const std::uint8_t, 32> bytes)
{
    Number number(BN_bin2bn(bytes.data(), static_cast<int>(bytes.size()), nullptr));
    if (number) BN_set_flags(number.get(), BN_FLG_CONSTTIME);
    return number;
}

}  // namespace

std::optional<PublicKey> public_key_of(std::span<const std::uint8_t, 32> private_key)
{
    const Curve curve;
    const Number secret = number_from(private_key);
    if (!curve.is_usable || !secret) return std::nullopt;
    if (BN_is_zero(secret.get()) || BN_cmp(secret.get(), curve.order.get()) >= 0) return std::nullopt;

    const Point point(EC_POINT_new(curve.group));
    if (!point || EC_POINT_mul(curve.group, point.get(), secret.get(), nullptr, nullptr, curve.scratch.get()) != 1 ||
        EC_KEY_set_private_key(curve.key.get(), secret.get()) != 1 ||
        EC_KEY_set_public_key(curve.key.get(), point.get()) != 1) {
        return std::nullopt;
    }
    PublicKey compressed{};
    if (EC_POINT_point2oct(curve.group, EC_KEY_get0_public_key(curve.key.get()), POINT_CONVERSION_COMPRESSED,
                           compressed.data(), compressed.size(), curve.scratch.get()) != compressed.size()) {
        return std::nullopt;
    }
    return compressed;
}

std::optional<WipedBuffer<32>> tweaked_key(std::span<const std::uint8_t, 32> tweak,
                                           std::span<const std::uint8_t, 32> key)
{
    const Curve curve;
    const Number addend = number_from(tweak);
    const Number parent = number_from(key);
    const Number sum(BN_new());
    if (!curve.is_usable || !addend || !parent || !sum) return std::nullopt;
    if (BN_cmp(addend.get(), curve.order.get()) >= 0) return std::nullopt;
    if (BN_mod_add(sum.get(), addend.get(), parent.get(), curve.order.get(), curve.scratch.get()) != 1 ||
        BN_is_zero(sum.get())) {
        return std::nullopt;
    }
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
