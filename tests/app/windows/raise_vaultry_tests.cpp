// How Connect gets Vaultry in front of the user: its window, or else its program, wherever that lies.
#include "app/windows/controls.h"
#include "kit/connect_requests.h"
#include "kit/windows/running_program.h"
#include "kit/windows/vaultry.h"
#include "platform/text_conversion.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

std::wstring folder_of(const TestFolder& folder)
{
    return widen(folder.path());
}

// A copy of the program in a folder below another, with copies of Vaultry where a test puts them.
class VaultryBesideTheProgram : public testing::Test {
protected:
    VaultryBesideTheProgram()
    {
        std::filesystem::create_directories(m_inner);
        std::filesystem::copy_file(program_folder() + L"\\Brasslet.exe", m_inner + L"\\Brasslet.exe");
        set_vaultry_orders(L"started --connect deny");
    }
    ~VaultryBesideTheProgram() override { close_vaultry(); }

    // The file that a started Vaultry writes into its working directory.
    static bool has_started_in(const std::wstring& folder) { return std::filesystem::exists(folder + L"\\started"); }

    void connect() const
    {
        const RunningProgram program(m_inner);
        program.press(kConnectButton);
        EXPECT_TRUE(program.shows(kStatusLine, L"error: connect denied in Vaultry."));
    }

    TestFolder m_folder;
    std::wstring m_outer = folder_of(m_folder) + L"\\Corvane programs";
    std::wstring m_inner = m_outer + L"\\Brasslet";
};

}  // namespace

TEST(RaiseVaultry, AMinimisedWindowIsRestoredAndBroughtToTheFront)
{
    const TestFolder folder;
    const RunningVaultry vaultry(folder_of(folder), L"--show minimised --connect deny");
    ASSERT_TRUE(IsIconic(vaultry_window()));
    const RunningProgram program;
    program.press(kConnectButton);
    EXPECT_TRUE(becomes_true([] { return IsIconic(vaultry_window()) == 0; }));
    EXPECT_TRUE(becomes_true([] { return GetForegroundWindow() == vaultry_window(); }));
    EXPECT_TRUE(program.shows(kStatusLine, L"error: connect denied in Vaultry."));
}

TEST(RaiseVaultry, AWindowBehindIsBroughtToTheFrontAsItIs)
{
    const TestFolder folder;
    const RunningVaultry vaultry(folder_of(folder), L"--show visible --connect deny");
    RECT before{};
    GetWindowRect(vaultry_window(), &before);
    const RunningProgram program;
    SetForegroundWindow(program.window());
    ASSERT_TRUE(becomes_true([&] { return GetForegroundWindow() == program.window(); }));
    program.press(kConnectButton);
    EXPECT_TRUE(becomes_true([] { return GetForegroundWindow() == vaultry_window(); }));
    RECT after{};
    GetWindowRect(vaultry_window(), &after);
    EXPECT_TRUE(EqualRect(&before, &after));
    EXPECT_TRUE(program.shows(kStatusLine, L"error: connect denied in Vaultry."));
}

TEST(RaiseVaultry, WithoutAnyTheRequestIsWrittenAndTheProgramWaits)
{
    const TestFolder folder;
    const RunningProgram program;
    program.press(kConnectButton);
    ASSERT_TRUE(becomes_true([&] { return connect_request_ids(folder).size() == 1; }));
    EXPECT_EQ(vaultry_window(), nullptr);
    reply_to_connect_request(folder, R"({"ok":false})");
    EXPECT_TRUE(program.shows(kStatusLine, L"error: connect denied in Vaultry."));
}

TEST_F(VaultryBesideTheProgram, IsStartedInTheProgramsFolder)
{
    put_vaultry(m_inner);
    connect();
    EXPECT_TRUE(has_started_in(m_inner));
    EXPECT_FALSE(has_started_in(m_outer));
}

TEST_F(VaultryBesideTheProgram, IsStartedInTheFolderAbove)
{
    put_vaultry(m_outer);
    connect();
    EXPECT_TRUE(has_started_in(m_outer));
}

TEST_F(VaultryBesideTheProgram, TheProgramsOwnFolderComesFirst)
{
    put_vaultry(m_inner);
    put_vaultry(m_outer);
    connect();
    EXPECT_TRUE(has_started_in(m_inner));
    EXPECT_FALSE(has_started_in(m_outer));
}

TEST_F(VaultryBesideTheProgram, IsNotStartedWhenItsWindowIsThere)
{
    put_vaultry(m_inner);
    const RunningVaultry vaultry(folder_of(m_folder), L"--connect deny");
    connect();
    EXPECT_FALSE(has_started_in(m_inner));
}
