#include "site/shown_text.h"

#include "platform/text_conversion.h"

#include <gtest/gtest.h>

TEST(ShownText, IsTheTextAsItStands)
{
    EXPECT_EQ(shown_text(""), L"");
    EXPECT_EQ(shown_text("Nope."), L"Nope.");
    EXPECT_EQ(shown_text("<b>50 %s</b> & \"more\""), L"<b>50 %s</b> & \"more\"");
    EXPECT_EQ(shown_text("\xC3\xA4 \xE6\xBC\xA2 \xD7\x90"), L"\u00e4 \u6f22 \u05d0");
}

TEST(ShownText, IsOneLineWithSingleBlanks)
{
    EXPECT_EQ(shown_text(" \t\r\nOne\r\n\r\ntwo\tthree   four\n"), L"One two three four");
    EXPECT_EQ(shown_text("a\xE2\x80\xA8"
                         "b\xE2\x80\xA9"
                         "c\xC2\xA0"
                         "d\xC2\x85"
                         "e\xE3\x80\x80"
                         "f"),
              L"a b c d e f");
    EXPECT_EQ(shown_text(" \n "), L"");
}

TEST(ShownText, LosesControlCharacters)
{
    for (const char* control : {"\x01", "\x07", "\b", "\x0e", "\x1b", "\x1f", "\x7f"})
        EXPECT_EQ(shown_text(std::string("a") + control + "b"), L"ab") << static_cast<int>(*control);
    EXPECT_EQ(shown_text(std::string("a\0b", 3)), L"ab");
    EXPECT_EQ(shown_text("a\xC2\x80\xC2\x9B\xC2\x9F\x62"), L"ab");
}

TEST(ShownText, LosesWhatTurnsTheDirectionOrIsNotSeen)
{
    for (const char* mark :
         {"\xC2\xAD",                                                                      // soft hyphen
          "\xD8\x9C",                                                                      // Arabic letter mark
          "\xE1\xA0\x8E",                                                                  // Mongolian vowel separator
          "\xE2\x80\x8B", "\xE2\x80\x8C", "\xE2\x80\x8D", "\xE2\x80\x8E", "\xE2\x80\x8F",  // 200B to 200F
          "\xE2\x80\xAA", "\xE2\x80\xAB", "\xE2\x80\xAC", "\xE2\x80\xAD", "\xE2\x80\xAE",  // 202A to 202E
          "\xE2\x81\xA0", "\xE2\x81\xA6", "\xE2\x81\xA7", "\xE2\x81\xA8", "\xE2\x81\xA9",  // 2060 to 2069
          "\xE2\x81\xAF", "\xEF\xBB\xBF", "\xEF\xBF\xB9", "\xEF\xBF\xBB"})
        EXPECT_EQ(shown_text(std::string("a") + mark + "b"), L"ab") << mark;
}

TEST(ShownText, KeepsTheNeighboursOfWhatItDrops)
{
    for (const wchar_t c : {L' ', L'~', L'\u00a1', L'\u00ac', L'\u00ae', L'\u061b', L'\u061d', L'\u2010', L'\u2027',
                            L'\u2030', L'\u205e', L'\u2070', L'\ufefe', L'\ufffc', L'\ufffd'}) {
        const std::wstring text = std::wstring(L"a") + c + L"b";
        EXPECT_EQ(shown_text(narrow(text)), text) << static_cast<unsigned>(c);
    }
}

TEST(ShownText, BytesThatAreNoUtf8AreSeenAsSuch)
{
    EXPECT_EQ(shown_text("a\xFF"
                         "b"),
              L"a\ufffdb");
}

TEST(ShownText, IsCutAtWhatTheStatusLineShows)
{
    EXPECT_EQ(shown_text(std::string(160, 'a')), std::wstring(160, L'a'));
    EXPECT_EQ(shown_text(std::string(161, 'a')), std::wstring(159, L'a') + L'\u2026');
    EXPECT_EQ(shown_text(std::string(1'000'000, ' ') + "b"), L"b");
}

TEST(ShownText, ACutLeavesNoHalfOfACharacter)
{
    std::string smiles;
    for (int i = 0; i < 200; ++i)
        smiles += "\xF0\x9F\x98\x80";
    const std::wstring shown = shown_text("a" + smiles);
    EXPECT_LE(shown.size(), 160U);
    EXPECT_EQ(shown.back(), L'\u2026');
    const wchar_t before = shown[shown.size() - 2];
    EXPECT_FALSE(before >= 0xD800 && before <= 0xDBFF);
    const std::wstring other = shown_text(smiles);
    const wchar_t last = other[other.size() - 2];
    EXPECT_FALSE(last >= 0xD800 && last <= 0xDBFF);
}
