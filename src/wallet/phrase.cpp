#include "wallet/phrase.h"

#include "wallet/digest.h"

#include <openssl/evp.h>

#include <algorithm>
#include <array>
#include <climits>
#include <string_view>

namespace {

constexpr std::array<std::string_view, 2048> kWords{
#include "wallet/english_words.inc"
};

bool same_letter(char typed, char listed)
{
    return (typed >= 'A' && typed <= 'Z' ? typed - 'A' + 'a' : typed) == listed;
}

}  // namespace

std::optional<std::uint16_t> word_position(std::string_view word)
{
    const auto found = std::find_if(kWords.begin(), kWords.end(), [word](std::string_view listed) {
        return std::equal(word.begin(), word.end(), listed.begin(), listed.end(), same_letter);
    });
    if (found == kWords.end()) return std::nullopt;
    return static_cast<std::uint16_t>(found - kWords.begin());
}

namespace {

constexpr std::string_view kSeparators = " \t";
constexpr std::size_t kWordCount = 12;
constexpr std::size_t kBitsPerWord = 11;
constexpr std::size_t kEntropySize = 16;

using PackedWords = WipedBuffer<kEntropySize + 1>;  // entropy, then the checksum in the high four bits of the last byte

// Removes the next word from `rest` and returns it; empty at the end.
std::string_view next_word(std::string_view& rest)
{
    rest.remove_prefix(std::min(rest.find_first_not_of(kSeparators), rest.size()));
    const std::string_view word = rest.substr(0, rest.find_first_of(kSeparators));
    rest.remove_prefix(word.size());
    return word;
}

void put_word(PackedWords& packed, std::size_t place, unsigned position)
{
    for (std::size_t bit = 0; bit < kBitsPerWord; ++bit) {
        const unsigned value = (position >> (kBitsPerWord - 1 - bit)) & 1U;
        const std::size_t at = place * kBitsPerWord + bit;
        packed.data()[at / 8] = static_cast<std::uint8_t>(packed.data()[at / 8] | (value << (7 - at % 8)));
    }
}

}  // namespace

bool is_valid_phrase(const SecretText& phrase)
{
    PackedWords packed;
    std::string_view rest = phrase.text();
    for (std::size_t place = 0; place < kWordCount; ++place) {
        const auto position = word_position(next_word(rest));
        if (!position) return false;
        put_word(packed, place, *position);
    }
    if (!next_word(rest).empty()) return false;

    const auto digest = sha256(packed.bytes().first<kEntropySize>());
    return digest && (digest->data()[0] & 0xF0) == packed.data()[kEntropySize];
}

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
