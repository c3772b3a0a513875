// How Explorer is started when the shell does not show the file by itself, as it does not for one that is not there.
#include "platform/explorer.h"

#include "kit/windows/replaced_import.h"
#include "platform/windows/com_apartment.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <utility>
#include <vector>

extern "C" decltype(&ShellExecuteW) __imp_ShellExecuteW;

namespace {

using Start = std::pair<std::wstring, std::wstring>;  // program and parameters
std::vector<Start> starts;

HINSTANCE WINAPI note_start(HWND, LPCWSTR, LPCWSTR program, LPCWSTR parameters, LPCWSTR, INT)
{
    starts.emplace_back(program, parameters);
    return nullptr;
}

std::vector<Start> starts_for(const std::string& path)
{
    const ComApartment apartment;
    const ReplacedImport<decltype(&ShellExecuteW)> noted(__imp_ShellExecuteW, note_start);
    starts.clear();
    show_in_explorer(path, nullptr);
    return starts;
}

}  // namespace

TEST(Explorer, IsStartedByItsFullPathWithTheFileAsOneWord)
{
    wchar_t windows[MAX_PATH];
    GetWindowsDirectoryW(windows, MAX_PATH);
    EXPECT_EQ(starts_for("C:/no such folder, of Zo\xC3\xAB/a.zip"),
              (std::vector<Start>{
                  {std::wstring(windows) + L"\\explorer.exe", L"/select,\"C:\\no such folder, of Zo\u00EB\\a.zip\""}}));
}

TEST(Explorer, IsNotStartedForAPathThatWouldBeSeveralWords)
{
    for (const char* path : {"C:/no/\" /root,\"C:/a.zip", "C:/no/a\nb.zip", "C:/no/a\x1F.zip"})
        EXPECT_TRUE(starts_for(path).empty()) << path;
}
