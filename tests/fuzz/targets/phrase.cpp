// Property: an accepted phrase has twelve words, and is accepted too in small letters with single blanks; a word more
// or a word less is refused.
#include "wallet/phrase.h"

#include "fuzz/target.h"
#include "text/ascii.h"

#include <algorithm>

namespace {

void check(std::string_view text)
{
    const bool is_valid = is_valid_phrase(SecretText(std::string(text)));
    std::string plain;
    std::size_t words = 0;
    for (std::size_t at = text.find_first_not_of(" \t"); at != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(" \t", at), text.size());
        plain += (words++ == 0 ? "" : " ") + lower_ascii(text.substr(at, end - at));
        at = text.find_first_not_of(" \t", end);
    }
    require(is_valid_phrase(SecretText(plain)) == is_valid, "case and blanks do not count");
    if (!is_valid) return;
    require(words == 12, "a phrase has twelve words");
    require(!is_valid_phrase(SecretText(plain + " abandon")), "a word more is refused");
    require(!is_valid_phrase(SecretText(plain.substr(0, plain.rfind(' ')))), "a word less is refused");
}

const FuzzTarget target("phrase", check);

}  // namespace
