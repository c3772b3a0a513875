#include "wallet/seed.h"

#include "wallet/digest.h"

#include <openssl/evp.h>

#include <climits>

std::optional<Seed> seed_from_phrase(const SecretText& phrase)
{
    return stretched_phrase(phrase, "mnemonic");
}

std::optional<Seed> stretched_phrase(const SecretText& phrase, std::string_view salt)
{
    constexpr int kRounds = 2048;
    const std::string& password = phrase.text();
    if (password.size() > INT_MAX || salt.size() > INT_MAX) return std::nullopt;
    Seed seed;
    if (PKCS5_PBKDF2_HMAC(password.data(), static_cast<int>(password.size()), bytes_of(salt).data(),
                          static_cast<int>(salt.size()), kRounds, EVP_sha512(), static_cast<int>(seed.size()),
                          seed.data()) != 1) {
        return std::nullopt;
    }
    return seed;
}
