// The password in the settings window's field: gone from the whole memory of the program once the window is closed.
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "kit/windows/users_files.h"
#include "settings/windows/settings_window_controls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

namespace {

constexpr char kPassword[] = "qjzkwxvpbyfgmucdlsrhtnoi";
constexpr wchar_t kWide[] = L"qjzkwxvpbyfgmucdlsrhtnoi";
constexpr std::size_t kPiece = 8;  // letters; a shorter piece of the password tells nothing

std::size_t count_in(std::string_view memory, std::string_view sought)
{
    std::size_t count = 0;
    for (std::size_t at = memory.find(sought); at != std::string_view::npos; at = memory.find(sought, at + 1))
        ++count;
    return count;
}

// How often a piece of the password stands in the process's writable memory as wide text, as edit controls keep it.
std::size_t pieces_in(HANDLE process)
{
    std::size_t count = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const char* at = nullptr; VirtualQueryEx(process, at, &region, sizeof region) != 0;
         at = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
        if (region.State != MEM_COMMIT || (region.Protect & (PAGE_READWRITE | PAGE_EXECUTE_READWRITE)) == 0) continue;
        std::vector<char> bytes(region.RegionSize);
        SIZE_T size = 0;
        ReadProcessMemory(process, region.BaseAddress, bytes.data(), bytes.size(), &size);
        for (std::size_t start = 0; start + kPiece <= std::size(kPassword) - 1; start += kPiece)
            count += count_in({bytes.data(), size},
                              {reinterpret_cast<const char*>(kWide + start), kPiece * sizeof(wchar_t)});
    }
    return count;
}

class PasswordInMemory : public testing::Test {
protected:
    const TestFolder folder;
};

}  // namespace

TEST_F(PasswordInMemory, OfATypedPasswordNoWideCopyStaysAfterTheWindowHasClosed)
{
    const RunningProgram program;
    {
        const OpenSettingsWindow settings(program);
        settings.type(kPasswordField, kWide);
        EXPECT_GT(pieces_in(program.process()), 0U);
        settings.press(kCloseSettingsButton);
    }
    EXPECT_EQ(saved().password, kPassword);
    EXPECT_EQ(pieces_in(program.process()), 0U);
}

TEST_F(PasswordInMemory, OfAStoredPasswordThatWasShownNoWideCopyStaysAfterTheWindowHasClosed)
{
    save({"old.example", "admin", kPassword});
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    EXPECT_EQ(pieces_in(program.process()), 0U);
    settings.press(kShowPasswordButton);
    EXPECT_GT(pieces_in(program.process()), 0U);
    settings.press(kCloseSettingsButton);
    EXPECT_EQ(pieces_in(program.process()), 0U);
}
