#include "site/shown_text.h"

#include "platform/text_conversion.h"

#include <algorithm>

namespace {

constexpr wchar_t kEllipsis = 0x2026;

struct Range {
    wchar_t first;
    wchar_t last;
};

bool is_in(wchar_t c, std::initializer_list<Range> ranges)
{
    return std::any_of(ranges.begin(), ranges.end(), [c](Range range) { return c >= range.first && c <= range.last; });
}

// White space of every script, and what separates lines and paragraphs (Unicode's property White_Space).
bool is_blank(wchar_t c)
{
    return is_in(c, {{0x0009, 0x000D},
                     {0x0020, 0x0020},
                     {0x0085, 0x0085},
                     {0x00A0, 0x00A0},
                     {0x1680, 0x1680},
                     {0x2000, 0x200A},
                     {0x2028, 0x2029},
                     {0x202F, 0x202F},
                     {0x205F, 0x205F},
                     {0x3000, 0x3000}});
}

// Control characters (Cc) and format characters (Cf): a text can be read without them, if not always as well joined.
bool is_unseen(wchar_t c)
{
    return is_in(c, {{0x0000, 0x001F},
                     {0x007F, 0x009F},
                     {0x00AD, 0x00AD},
                     {0x061C, 0x061C},
                     {0x180E, 0x180E},
                     {0x200B, 0x200F},
                     {0x202A, 0x202E},
                     {0x2060, 0x206F},
                     {0xFEFF, 0xFEFF},
                     {0xFFF9, 0xFFFB}});
}

bool is_first_of_pair(wchar_t c)
{
    return is_in(c, {{0xD800, 0xDBFF}});
}

}  // namespace

std::wstring shown_text(std::string_view text)
{
    std::wstring shown;
    bool is_apart = false;  // a blank comes before the next character
    for (const wchar_t c : widen(text)) {
        if (is_blank(c)) {
            is_apart = !shown.empty();
        } else if (!is_unseen(c)) {
            if (is_apart) shown += L' ';
            is_apart = false;
            shown += c;
        }
    }
    if (shown.size() <= kLongestShown) return shown;
    shown.resize(kLongestShown - 1);
    if (is_first_of_pair(shown.back())) shown.pop_back();
    return shown + kEllipsis;
}
