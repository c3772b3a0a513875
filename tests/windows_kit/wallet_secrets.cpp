#include "windows_kit/wallet_secrets.h"

#include "kit/wallet_files.h"
#include "text/ascii.h"
#include "wallet/digest.h"
#include "wallet/extended_key.h"
#include "wallet/phrase.h"

#include <algorithm>
#include <array>
#include <map>
#include <span>
#include <sstream>

namespace {

constexpr char kPublishedPhrase[] = "ozone drill grab fiber curtain grace pudding thank cruise elder eight picnic";
constexpr std::array<std::uint8_t, 16> kEntropy = {0x9e, 0x88, 0x5d, 0x95, 0x2a, 0xd3, 0x62, 0xca,
                                                   0xeb, 0x4e, 0xfe, 0x34, 0xa8, 0xe9, 0x1b, 0xd2};
constexpr std::uint32_t kShown = 3;    // payment address
constexpr std::uint32_t kOrdinal = 7;  // ordinals address
constexpr char kPaymentKey[] = "the private key m/44'/236'/1'/0/3";

using Bytes = std::span<const std::uint8_t>;

std::string raw(Bytes bytes)
{
    return {bytes.begin(), bytes.end()};
}

std::string wide(const std::string& text)
{
    std::string bytes;
    for (const char letter : text)
        bytes += {letter, '\0'};
    return bytes;
}

std::string mixed_with(const std::string& text, char pad)
{
    std::string mixed = text;
    for (char& byte : mixed)
        byte = static_cast<char>(byte ^ pad);
    return mixed;
}

// As SHA-512 lays its input out in words: every eight bytes turned round.
std::string as_hash_words(const std::string& bytes)
{
    std::string words = bytes.substr(0, bytes.size() - bytes.size() % 8);
    for (auto word = words.begin(); word != words.end(); word += 8)
        std::reverse(word, word + 8);
    return words;
}

// The pads of HMAC's inner and outer key block (RFC 2104).
constexpr char kPads[] = {0x36, 0x5C};

// As it is, wide, and as HMAC mixes it into its key blocks.
std::vector<std::string> forms_of_text(const std::string& text)
{
    return {text, wide(text), mixed_with(text, kPads[0]), mixed_with(text, kPads[1])};
}

// Raw, from the last byte to the first (as libcrypto keeps numbers), as input of a hash, also behind the zero byte of a
// hardened child, and as hex.
std::vector<std::string> forms_of_bytes(Bytes bytes)
{
    const std::string data = raw(bytes);
    const std::string hex = hex_encode(bytes);
    std::string capitals = hex;
    std::ranges::transform(capitals, capitals.begin(), [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
    return {data,
            {data.rbegin(), data.rend()},
            as_hash_words(data),
            as_hash_words('\0' + data).substr(8),
            hex,
            wide(hex),
            capitals,
            wide(capitals)};
}

std::vector<Secret> runs_of_words(std::size_t length)
{
    std::istringstream phrase(kPublishedPhrase);
    const std::vector<std::string> words{std::istream_iterator<std::string>(phrase), {}};
    std::vector<Secret> runs;
    for (std::size_t first = 0; first + length <= words.size(); ++first) {
        std::string run = words[first];
        for (std::size_t i = 1; i < length; ++i)
            run += ' ' + words[first + i];
        runs.push_back({"the words \"" + run + '"', forms_of_text(run)});
    }
    return runs;
}

Secret phrase_as_key_of_hmac()
{
    std::string block = kPublishedPhrase;
    block.resize(128);
    std::vector<std::string> forms;
    for (const char pad : kPads)
        forms.push_back(as_hash_words(mixed_with(block, pad)).substr(0, 64));
    return {"the phrase as HMAC's key", forms};
}

std::vector<Secret> every_eight_letters(const std::string& of, const std::string& text)
{
    std::vector<Secret> secrets;
    for (std::size_t first = 0; first + 8 <= text.size(); first += 8) {
        const std::string letters = text.substr(first, 8);
        secrets.push_back({of + "'s letters from " + std::to_string(first), {letters, wide(letters)}});
    }
    return secrets;
}

// Every private key and chain code that stands on the way to the wallet's keys, by its path.
std::map<std::string, ExtendedKey> keys_on_the_way(const Seed& seed)
{
    std::map<std::string, ExtendedKey> keys;
    keys.emplace("m", master_key(seed.bytes()).value());
    for (const auto& [account, index] : {std::pair{1U, kShown}, std::pair{100U, 0U}, std::pair{5U, kOrdinal}}) {
        std::string path = "m";
        for (const std::uint32_t step : {kHardened + 44, kHardened + 236, kHardened + account, 0U, index}) {
            const ExtendedKey& parent = keys.at(path);
            path += '/' + std::to_string(step % kHardened) + (step >= kHardened ? "'" : "");
            if (!keys.contains(path)) keys.emplace(path, derive_child(parent, step).value());
        }
    }
    return keys;
}

}  // namespace

nlohmann::json published_wallet()
{
    return phrase_wallet({{"mnemonic", kPublishedPhrase}, {"recv", {0, kShown, 0, 0, 0, kOrdinal}}, {"show", kShown}});
}

std::vector<Secret> secrets_of_published_wallet()
{
    std::vector<Secret> secrets = runs_of_words(4);
    secrets.push_back(phrase_as_key_of_hmac());
    secrets.push_back({"the entropy", forms_of_bytes(kEntropy)});
    const Seed seed = seed_from_phrase(SecretText(kPublishedPhrase)).value();
    secrets.push_back({"the seed", forms_of_bytes(seed.bytes())});
    for (const auto& [path, key] : keys_on_the_way(seed)) {
        secrets.push_back({"the private key " + path, forms_of_bytes(key.private_key.bytes())});
        secrets.push_back({"the chain code " + path, forms_of_bytes(key.chain_code.bytes())});
    }
    return secrets;
}

std::set<std::string> secrets_of_a_connected_wallet()
{
    std::set<std::string> names{kPaymentKey};
    for (const Secret& run : runs_of_words(4))
        names.insert(run.name);
    return names;
}

std::vector<Secret> secrets_of_password(const std::string& password)
{
    return every_eight_letters("the password", password);
}

std::vector<Secret> secrets_of_login(const std::string& user, const std::string& password)
{
    const std::string login = base64_encode(user + ':' + password);
    std::vector<Secret> secrets = secrets_of_password(password);
    std::ranges::move(every_eight_letters("the login", login.substr(login.size() / 4)), std::back_inserter(secrets));
    return secrets;
}
