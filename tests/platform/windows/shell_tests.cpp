// Explorer is seen to be started when the shell does not show the file by itself, as it does not for one that is not
// there.
#include "platform/windows/shell.h"

#include "kit/windows/handed_to_shell.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

std::vector<ShellStart> starts_for(const std::string& path)
{
    const ComApartment apartment;
    const ShellStarts starts;
    show_in_explorer(path, nullptr);
    return starts.noted();
}

}  // namespace

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

TEST(OpenPage, GivesThePageToTheUsersBrowser)
{
    const OpenedPages pages;
    EXPECT_TRUE(open_page("https://corvane.example/a?b=c&d=%20e"));
    ASSERT_TRUE(pages.come_to(1));
    EXPECT_THAT(pages.addresses(), testing::ElementsAre("https://corvane.example/a?b=c&d=%20e"));
}

TEST(OpenPage, OpensNothingButHttps)
{
    const OpenedPages pages;
    for (const char* address : {"", "http://corvane.example/", "HTTPS://corvane.example/", "file:///c:/windows",
                                "c:\\windows\\system32\\winver.exe", "winver", "mailto:a@corvane.example"})
        EXPECT_FALSE(open_page(address)) << address;
    EXPECT_TRUE(open_page("https://corvane.example/after"));
    ASSERT_TRUE(pages.come_to(1));
    EXPECT_THAT(pages.addresses(), testing::ElementsAre("https://corvane.example/after"));
}

TEST(OpenPage, OpensNothingThatTheBrowserCouldTakeForSeveralWords)
{
    const OpenedPages pages;
    for (const char* address :
         {"https://corvane.example/a b", "https://corvane.example/\" --no-sandbox \"", "https://corvane.example/\x01",
          "https://corvane.example/\ta", "https://corvane.example/\na", "https://corvane.example/\x7F",
          "https://corvane.example/\xC2\xA0", "https://corvane.example/\xE3\x80\x80"})
        EXPECT_FALSE(open_page(address)) << address;
    EXPECT_TRUE(open_page("https://corvane.example/after"));
    ASSERT_TRUE(pages.come_to(1));
    EXPECT_THAT(pages.addresses(), testing::ElementsAre("https://corvane.example/after"));
}

TEST(Explorer, IsStartedByItsFullPathWithTheFileAsOneWord)
{
    wchar_t windows[MAX_PATH];
    GetWindowsDirectoryW(windows, MAX_PATH);
    EXPECT_EQ(starts_for("C:/no such folder, of Zo\xC3\xAB/a.zip"),
              (std::vector<ShellStart>{
                  {std::wstring(windows) + L"\\explorer.exe", L"/select,\"C:\\no such folder, of Zo\u00EB\\a.zip\""}}));
}

TEST(Explorer, IsNotStartedForAPathThatWouldBeSeveralWords)
{
    for (const char* path : {"C:/no/\" /root,\"C:/a.zip", "C:/no/a\nb.zip", "C:/no/a\x1F.zip"})
        EXPECT_TRUE(starts_for(path).empty()) << path;
}
