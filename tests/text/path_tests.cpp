#include "text/path.h"

#include <gtest/gtest.h>

TEST(WithoutLastElement, IsTheFolderOfAFile)
{
    EXPECT_EQ(without_last_element(L"C:\\Tools\\Brasslet\\Brasslet.exe"), L"C:\\Tools\\Brasslet");
}

TEST(WithoutLastElement, TakesBothSeparators)
{
    EXPECT_EQ(without_last_element(L"C:/Tools/Brasslet.exe"), L"C:/Tools");
    EXPECT_EQ(without_last_element(L"C:\\Tools/Brasslet.exe"), L"C:\\Tools");
}

TEST(WithoutLastElement, DropsSeveralSeparatorsBeforeTheLastElement)
{
    EXPECT_EQ(without_last_element(L"C:\\Tools\\/\\Brasslet.exe"), L"C:\\Tools");
}

TEST(WithoutLastElement, KeepsTheRootThatAFileStandsIn)
{
    EXPECT_EQ(without_last_element(L"C:\\Brasslet.exe"), L"C:\\");
    EXPECT_EQ(without_last_element(L"\\Brasslet.exe"), L"\\");
    EXPECT_EQ(without_last_element(L"\\\\?\\C:\\Brasslet.exe"), L"\\\\?\\C:\\");
}

TEST(WithoutLastElement, OfOnlyARootIsTheRoot)
{
    for (const std::wstring_view root : {L"C:\\", L"C:/", L"C:", L"\\", L"/", L"\\\\server\\", L"\\\\server", L""})
        EXPECT_EQ(without_last_element(root), root);
}

TEST(WithoutLastElement, KnowsSharesOfAServer)
{
    EXPECT_EQ(without_last_element(L"\\\\server\\share\\Brasslet.exe"), L"\\\\server\\share");
    EXPECT_EQ(without_last_element(L"\\\\server\\share"), L"\\\\server\\");
}

TEST(WithoutLastElement, OfALoneNameIsNothing)
{
    EXPECT_EQ(without_last_element(L"Brasslet.exe"), L"");
}
