#include "platform/text_conversion.h"

#include "text/ascii.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

struct Pair {
    const char* utf8;
    const wchar_t* wide;
};

// One character of every length, the first and the last of each.
constexpr Pair kCharacters[] = {
    {"\x01", L"\x01"},
    {"\x7F", L"\x7F"},
    {"\xC2\x80", L"\u0080"},
    {"\xDF\xBF", L"\u07FF"},
    {"\xE0\xA0\x80", L"\u0800"},
    {"\xED\x9F\xBF", L"\uD7FF"},
    {"\xEE\x80\x80", L"\uE000"},
    {"\xEF\xBF\xBF", L"\uFFFF"},
    {"\xF0\x90\x80\x80", L"\U00010000"},
    {"\xF0\x9F\x98\x80", L"\U0001F600"},
    {"\xF4\x8F\xBF\xBF", L"\U0010FFFF"},
};

// The longest beginning of a character that does not go on as one becomes one U+FFFD.
constexpr Pair kDamaged[] = {
    {"\x80", L"\uFFFD"},                                 // a tail alone
    {"\x80\xBF", L"\uFFFD\uFFFD"}, {"\xC2", L"\uFFFD"},  // ends too early
    {"\xC2x", L"\uFFFDx"},         {"\xE2\x82", L"\uFFFD"},
    {"\xE2\x82x", L"\uFFFDx"},     {"\xF0\x9F\x98", L"\uFFFD"},
    {"\xF0\x9F\x98x", L"\uFFFDx"}, {"\xE2\xC3\xA4", L"\uFFFD\u00E4"},
    {"\xC0\x80", L"\uFFFD\uFFFD"},  // never begins a character
    {"\xC1\xBF", L"\uFFFD\uFFFD"}, {"\xF5\x80\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"\xFE\xFF", L"\uFFFD\uFFFD"}, {"a\xFFz", L"a\uFFFDz"},
};

// Longer than needed, a surrogate, beyond the last character. Systems differ in how many U+FFFD these become.
constexpr const char* kImpossible[] = {"\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",
                                       "\xF4\x90\x80\x80"};

std::string bytes(const char* text)
{
    return hex_encode({reinterpret_cast<const std::uint8_t*>(text), std::strlen(text)});
}

}  // namespace

TEST(TextConversion, EveryCharacterThereAndBack)
{
    for (const Pair& pair : kCharacters) {
        EXPECT_EQ(widen(pair.utf8), pair.wide) << bytes(pair.utf8);
        EXPECT_EQ(narrow(pair.wide), pair.utf8) << bytes(pair.utf8);
    }
}

TEST(TextConversion, BytesThatAreNoUtf8BecomeTheReplacementCharacter)
{
    for (const Pair& pair : kDamaged)
        EXPECT_EQ(widen(pair.utf8), pair.wide) << bytes(pair.utf8);
}

TEST(TextConversion, BytesThatNoCharacterHasGiveNothingElse)
{
    for (const char* utf8 : kImpossible) {
        const std::wstring wide = widen(std::string("<") + utf8 + ">");
        EXPECT_GE(wide.size(), 3U) << bytes(utf8);
        EXPECT_EQ(wide.find_first_not_of(L"<>\uFFFD"), std::wstring::npos) << bytes(utf8);
        EXPECT_TRUE(wide.starts_with(L'<') && wide.ends_with(L'>')) << bytes(utf8);
    }
}

TEST(TextConversion, ALoneSurrogateBecomesTheReplacementCharacter)
{
    constexpr char kReplacement[] = "\xEF\xBF\xBD";
    for (const wchar_t surrogate : {L'\xD800', L'\xDBFF', L'\xDC00', L'\xDFFF'}) {
        EXPECT_EQ(narrow(std::wstring(1, surrogate)), kReplacement);
        EXPECT_EQ(narrow(std::wstring(1, surrogate) + L"x"), std::string(kReplacement) + "x");
    }
    EXPECT_EQ(narrow(L"\xDC00\xD800"), std::string(kReplacement) + kReplacement);  // in the wrong order
}

TEST(TextConversion, OfNothingIsNothing)
{
    EXPECT_EQ(widen(""), L"");
    EXPECT_EQ(narrow(L""), "");
}

TEST(TextConversion, KeepsZeroBytesAndLongTexts)
{
    EXPECT_EQ(widen(std::string("a\0b", 3)), std::wstring(L"a\0b", 3));
    EXPECT_EQ(narrow(std::wstring(L"a\0b", 3)), std::string("a\0b", 3));
    std::string utf8;
    for (int i = 0; i < 10'000; ++i)
        utf8 += "\xC3\xA4";
    EXPECT_EQ(widen(utf8), std::wstring(10'000, L'\u00E4'));
    EXPECT_EQ(narrow(widen(utf8)), utf8);
}
