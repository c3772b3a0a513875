// Which libraries the program loads, and from where; and that none of them is one that somebody planted beside it.
#include "kit/test_folder.h"
#include "kit/wallet_files.h"
#include "kit/windows/running_program.h"
#include "kit/windows/spoken.h"
#include "kit/windows/users_files.h"
#include "paymail/kept_names.h"
#include "platform/text_conversion.h"
#include "platform/windows/windows_path.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/wallet_identity.h"
#include "windows_kit/expected_controls.h"
#include "windows_kit/machine.h"
#include "windows_kit/planted_libraries.h"
#include "windows_kit/report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>

namespace {

// Windows' own, and where other programs that work inside of every process are installed, as virus scanners are.
bool is_in_folder_of_administrators(const std::filesystem::path& path)
{
    return std::ranges::any_of(std::array{L"SystemRoot", L"ProgramFiles"}, [&](const wchar_t* variable) {
        wchar_t folder[MAX_PATH] = {};
        GetEnvironmentVariableW(variable, folder, MAX_PATH);
        return *folder != L'\0' && path.wstring().starts_with(in_small_letters(folder) + L"\\");
    });
}

class Libraries : public testing::Test {
protected:
    Libraries()
    {
        write_one_wallet(folder, phrase_wallet());
        bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
        EXPECT_TRUE(keep_payname({"ann@nobody.invalid", public_identity().public_key, public_identity().address}));
        save({"https://b\xC3\xBC"
              "cher.invalid",
              "owner", "abcdefgh"},
             "alice");
    }

    // What needs no site: the password is opened and protected, a host is made ASCII and asked for, and the name
    // servers are asked for another.
    static void use(const RunningProgram& program)
    {
        program.press(kPublishButton);
        EXPECT_TRUE(becomes_true([&] { return IsWindowEnabled(program.control(kConnectButton)) != FALSE; }));
        EXPECT_TRUE(program.text(kStatusLine).ends_with(L'.'));
        EXPECT_EQ(Accessible(program.control(kKeptNames)).press(), S_OK);
        EXPECT_TRUE(becomes_true([&] { return program.text(kStatusLine).starts_with(L"No answer about ann@"); }));
        const OpenSettingsWindow settings(program);
        settings.type(kPasswordField, L"qqqq wwww");
        settings.press(kCloseSettingsButton);
    }
    static LibraryPaths loaded_when_used(const RunningProgram& program)
    {
        use(program);
        return loaded_libraries(program.process());
    }

    const TestFolder folder;
    const std::filesystem::path beside = wide_path(folder.path() + "/beside");
};

}  // namespace

TEST_F(Libraries, ComeFromFoldersThatOnlyAdministratorsWriteTo)
{
    const RunningProgram program;
    for (const auto& path : loaded_when_used(program)) {
        EXPECT_TRUE(is_in_folder_of_administrators(path)) << narrow(path.wstring());
        note(narrow(path.wstring()));
    }
}

TEST_F(Libraries, AreMarkedByADecoyThatIsLoaded)
{
    plant(beside, {L"dwmapi.dll", L"bcrypt.dll"});
    const HMODULE decoy = LoadLibraryExW((beside / L"dwmapi.dll").c_str(), nullptr, 0);
    EXPECT_NE(decoy, nullptr);
    FreeLibrary(decoy);
    EXPECT_EQ(loaded_decoys(beside), LibraryNames{L"dwmapi.dll"});
}

TEST_F(Libraries, ThatAreBoundLateAreNeverThoseBesideTheProgram)
{
    plant(beside, bound_late());
    const RunningProgram program(beside.wstring());
    const LibraryNames loaded = names_of(loaded_when_used(program));
    EXPECT_TRUE(std::ranges::includes(loaded, bound_late()));
    EXPECT_EQ(loaded_decoys(beside), LibraryNames());
}

TEST_F(Libraries, OfAnyNameAreNeverThoseBesideTheProgram)
{
    if (is_wine())
        GTEST_SKIP()
            << "Wine has no list of libraries that are taken from Windows' own folder alone, and looks for what "
               "its own libraries import beside the program first.";
    plant(beside, names_of(loaded_when_used(RunningProgram())));
    const RunningProgram program(beside.wstring());
    use(program);
    EXPECT_EQ(loaded_decoys(beside), LibraryNames());
}
