// Settings that Windows does not let the program read: no right to the file, or a bad disk. Wine runs the tests as a
// user who may read everything, so Windows' answers are put in its place.
#include "kit/test_folder.h"
#include "kit/windows/replaced_import.h"
#include "settings/settings_store.h"

#include <gtest/gtest.h>

using OpenFunction = HANDLE(WINAPI*)(LPCWSTR, DWORD, DWORD, LPSECURITY_ATTRIBUTES, DWORD, DWORD, HANDLE);
using ReadFunction = BOOL(WINAPI*)(HANDLE, LPVOID, DWORD, LPDWORD, LPOVERLAPPED);
using SleepFunction = void(WINAPI*)(DWORD);
extern "C" OpenFunction __imp_CreateFileW;
extern "C" ReadFunction __imp_ReadFile;
extern "C" SleepFunction __imp_Sleep;

namespace {

int sleeps = 0;

HANDLE WINAPI deny(LPCWSTR, DWORD, DWORD, LPSECURITY_ATTRIBUTES, DWORD, DWORD, HANDLE)
{
    SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
}

BOOL WINAPI read_nothing(HANDLE, LPVOID, DWORD, LPDWORD, LPOVERLAPPED)
{
    SetLastError(ERROR_CRC);
    return FALSE;
}

void WINAPI count_sleep(DWORD)
{
    ++sleeps;
}

class RefusedSettings : public testing::Test {
protected:
    RefusedSettings()
    {
        SiteSettings kept;
        kept.user = "ann";
        EXPECT_EQ(save_settings(kept, "bob"), SettingsNotice::none);
        text = folder.read("payname/ui.json");
    }

    // They are told of, not written over, and nobody waits for them.
    void expect_left_alone()
    {
        const ReplacedImport<SleepFunction> counted(__imp_Sleep, count_sleep);
        EXPECT_EQ(load_settings(settings), SettingsNotice::unreadable);
        settings.user = "zoe";
        EXPECT_EQ(save_settings(settings, ""), SettingsNotice::not_saved);
        EXPECT_EQ(sleeps, 0);
    }

    const TestFolder folder;
    std::string text;
    SiteSettings settings;
};

}  // namespace

TEST_F(RefusedSettings, ThatTheUserMayNotReadAreLeftAlone)
{
    {
        const ReplacedImport<OpenFunction> denied(__imp_CreateFileW, deny);
        expect_left_alone();
    }
    EXPECT_EQ(folder.read("payname/ui.json"), text);
}

TEST_F(RefusedSettings, OnABadDiskAreLeftAlone)
{
    {
        const ReplacedImport<ReadFunction> broken(__imp_ReadFile, read_nothing);
        expect_left_alone();
    }
    EXPECT_EQ(folder.read("payname/ui.json"), text);
}
