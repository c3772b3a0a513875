// EC_KEY is deprecated, but its replacement cannot make the public key that belongs to a private one.
#define OPENSSL_SUPPRESS_DEPRECATED
#include "wallet/secp256k1.h"

#include "text/freed_by.h"

#include <openssl/bn.h>
#include <openssl/ec.h>
#include <openssl/obj_mac.h>

#include <memory>

namespace {

using Number = std::unique_ptr<BIGNUM, FreedBy<BN_clear_free>>;
using Scratch = std::unique_ptr<BN_CTX, FreedBy<BN_CTX_free>>;
using Key = std::unique_ptr<EC_KEY, FreedBy<EC_KEY_free>>;
using Point = std::unique_ptr<EC_POINT, FreedBy<EC_POINT_free>>;

// What every calculation here needs. Unusable when one of them could not be made.
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
