#include "kit/test_folder.h"
#include "platform/files.h"
#include "platform/windows/windows_path.h"

#include <gtest/gtest.h>

#include <windows.h>

TEST(CodePage, TheManifestMakesItUtf8)
{
    EXPECT_EQ(GetACP(), 65001U);
    EXPECT_EQ(wide_path("Zo\xC3\xAB"), L"Zo\u00EB");
    EXPECT_EQ(narrow(L"\u7528\u6237"), "\xE7\x94\xA8\xE6\x88\xB7");
    EXPECT_EQ(wide_path(""), L"");
}

TEST(CodePage, AFileOfANonAsciiPathHasThatName)
{
    const TestFolder folder;
    ASSERT_TRUE(write_file(folder.path() + "/\xCE\xA9.json", "{}"));
    EXPECT_NE(GetFileAttributesW((wide_path(folder.path()) + L"\\\u03A9.json").c_str()), INVALID_FILE_ATTRIBUTES);
}
