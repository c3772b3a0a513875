// What stands in the memory of the running program, read from outside: all of it, Windows' own fields and heaps
// included.
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "kit/windows/users_files.h"
#include "windows_kit/expected_controls.h"
#include "windows_kit/memory_search.h"

#include <gtest/gtest.h>

namespace {

using Names = std::set<std::string>;

constexpr wchar_t kPassword[] = L"qjzkwxvpbyfgmucdlsrhtnoi";

std::vector<Secret> letters_of_password()
{
    return secrets_of_password("qjzkwxvpbyfgmucdlsrhtnoi");
}

Names names_of(const std::vector<Secret>& secrets)
{
    Names names;
    for (const Secret& secret : secrets)
        names.insert(secret.name);
    return names;
}

// Bytes in the memory of another process, for the life of this.
class PlantedBytes {
public:
    PlantedBytes(HANDLE process, const std::string& bytes)
        : m_process(process),
          m_place(VirtualAllocEx(process, nullptr, bytes.size(), MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE))
    {
        EXPECT_TRUE(WriteProcessMemory(process, m_place, bytes.data(), bytes.size(), nullptr));
    }
    PlantedBytes(const PlantedBytes&) = delete;
    PlantedBytes& operator=(const PlantedBytes&) = delete;
    ~PlantedBytes() { VirtualFreeEx(m_process, m_place, 0, MEM_RELEASE); }

private:
    HANDLE m_process;
    void* m_place;
};

// Every question about the wallet reads its file.
void read_wallet_anew(const RunningProgram& program)
{
    program.press(kPublishButton);
    ASSERT_TRUE(program.shows(kStatusLine, L"Type the name. Letters, numbers, and . _ + -"));
    ASSERT_TRUE(becomes_true([&] { return IsWindowEnabled(program.control(kConnectButton)) != FALSE; }));
    program.press(kConnectButton);
    ASSERT_TRUE(program.shows(kStatusLine, L"Already connected. Unbind to pick another wallet."));
}

}  // namespace

TEST(Memory, IsSearchedForEveryFormOfEverySecret)
{
    const TestFolder folder;
    const RunningProgram program;
    std::vector<Secret> forms;  // each by itself
    std::string bytes;
    for (const auto& secrets : {secrets_of_published_wallet(), letters_of_password()})
        for (const Secret& secret : secrets)
            for (const std::string& form : secret.forms) {
                forms.push_back({std::to_string(forms.size()), {form}});
                bytes += form + '\0';
            }
    EXPECT_EQ(found_in_memory(program.process(), forms), Names());
    const PlantedBytes planted(program.process(), bytes);
    EXPECT_EQ(found_in_memory(program.process(), forms), names_of(forms));
}

TEST(Memory, HoldsPhraseAndPaymentKeyOfAConnectedWalletAndNothingElseOfIt)
{
    const TestFolder folder;
    write_one_wallet(folder, published_wallet());
    const RunningProgram program;
    EXPECT_EQ(found_in_memory(program.process(), secrets_of_published_wallet()), secrets_of_a_connected_wallet());
}

TEST(Memory, HoldsNoSecretOfTheWalletAfterUnbind)
{
    const TestFolder folder;
    write_one_wallet(folder, published_wallet());
    const RunningProgram program;
    const auto secrets = secrets_of_published_wallet();
    for (int i = 0; i < 5; ++i)
        read_wallet_anew(program);
    ASSERT_FALSE(found_in_memory(program.process(), secrets).empty());
    program.press(kUnbindButton);
    ASSERT_TRUE(program.shows(kStatusLine, kUnboundSentence));
    EXPECT_EQ(found_in_memory(program.process(), secrets), Names());
}

TEST(Memory, HoldsNoPasswordAfterTheSettingsWindowIsClosed)
{
    const TestFolder folder;
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.press(kShowPasswordButton);
    settings.type(kPasswordField, kPassword);
    EXPECT_EQ(found_in_memory(program.process(), letters_of_password()), names_of(letters_of_password()));
    settings.press(kCloseSettingsButton);
    EXPECT_FALSE(settings.is_open());
    EXPECT_EQ(found_in_memory(program.process(), letters_of_password()), Names());
    EXPECT_EQ(saved().password, "qjzkwxvpbyfgmucdlsrhtnoi");
}

TEST(Memory, HoldsTheSavedPasswordOnlyWhileTheEyeShowsIt)
{
    const TestFolder folder;
    save({"https://your-site.example", "owner", "qjzkwxvpbyfgmucdlsrhtnoi"});
    const RunningProgram program;
    EXPECT_EQ(found_in_memory(program.process(), letters_of_password()), Names());
    const OpenSettingsWindow settings(program);
    settings.press(kShowPasswordButton);
    EXPECT_EQ(found_in_memory(program.process(), letters_of_password()), names_of(letters_of_password()));
    settings.close_by_box();
    EXPECT_EQ(found_in_memory(program.process(), letters_of_password()), Names());
}
