// What may be handed to the shell, which reads a command line out of it that others wrote the rules of.
#pragma once

#include <string_view>

// Neither a quotation mark nor a control character: as one word between quotation marks it stays one word.
bool can_be_quoted(std::wstring_view text);

// No blank either: one word as it stands.
bool is_one_word(std::wstring_view text);
