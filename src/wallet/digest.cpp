// RIPEMD160() is deprecated; its replacement needs OpenSSL's legacy provider, which not every libcrypto can load.
#define OPENSSL_SUPPRESS_DEPRECATED
#include "wallet/digest.h"

#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/ripemd.h>
#include <openssl/sha.h>

#include <climits>

std::optional<Digest> sha256(std::span<const std::uint8_t> bytes)
{
    Digest digest;
    if (SHA256(bytes.data(), bytes.size(), digest.data()) == nullptr) return std::nullopt;
    return digest;
}

std::optional<std::array<std::uint8_t, 20>> ripemd160(std::span<const std::uint8_t> bytes)
{
    std::array<std::uint8_t, 20> digest{};
    if (RIPEMD160(bytes.data(), bytes.size(), digest.data()) == nullptr) return std::nullopt;
    return digest;
}

std::optional<WipedBuffer<64>> hmac_sha512(std::span<const std::uint8_t> key, std::span<const std::uint8_t> data)
{
    if (key.size() > INT_MAX) return std::nullopt;
    WipedBuffer<64> code;
    unsigned int size = 0;
    if (HMAC(EVP_sha512(), key.data(), static_cast<int>(key.size()), data.data(), data.size(), code.data(), &size) ==
            nullptr ||
        size != code.size()) {
        return std::nullopt;
    }
    return code;
}

std::span<const std::uint8_t> bytes_of(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}
