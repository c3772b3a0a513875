#include "platform/open_page.h"

#include "kit/windows/opened_pages.h"

#include <gmock/gmock.h>

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
