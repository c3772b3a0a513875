#include "wallet/word_list.h"

#include <algorithm>
#include <array>

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
