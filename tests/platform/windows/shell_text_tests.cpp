#include "platform/shell_text.h"

#include <gtest/gtest.h>

TEST(ShellText, OneWordHoldsNoQuoteBlankOrControlCharacter)
{
    EXPECT_TRUE(is_one_word(L"https://corvane.example/a?b=c&d=%20e#f'"));
    EXPECT_TRUE(is_one_word(L"https://corvane.example/\u7528\u6237"));
    for (const wchar_t c : {L'"', L' ', L'\t', L'\r', L'\n', L'\x01', L'\x1F', L'\x7F', L'\x85', L'\x9F', L'\xA0',
                            L'\x1680', L'\x2000', L'\x200A', L'\x2028', L'\x2029', L'\x202F', L'\x205F', L'\x3000'})
        EXPECT_FALSE(is_one_word(std::wstring(L"https://a") + c + L"b")) << static_cast<int>(c);
    EXPECT_FALSE(is_one_word(std::wstring(L"https://a\0b", 11)));
}

TEST(ShellText, BlanksMayStandBetweenQuotationMarksAndNothingThatEndsThem)
{
    EXPECT_TRUE(can_be_quoted(L"C:\\Users\\Ann Lee\\brasslet.zip"));
    for (const wchar_t c : {L'"', L'\t', L'\n', L'\x1F', L'\x7F', L'\x9F'})
        EXPECT_FALSE(can_be_quoted(std::wstring(L"C:\\a") + c + L"b")) << static_cast<int>(c);
}
