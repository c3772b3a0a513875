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
#include "windows_kit/report.h"

#include <gtest/gtest.h>

#include <psapi.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <sstream>

namespace {

using Paths = std::set<std::filesystem::path>;
using Names = std::set<std::wstring>;

std::wstring in_small_letters(std::wstring text)
{
    CharLowerW(text.data());
    return text;
}

// In small letters, the program itself left out.
Paths loaded_libraries(HANDLE process)
{
    HMODULE modules[1024] = {};
    DWORD size = 0;
    EXPECT_TRUE(EnumProcessModulesEx(process, modules, sizeof modules, &size, LIST_MODULES_ALL));
    Paths paths;
    for (DWORD i = 0; i < std::min<DWORD>(size / sizeof(HMODULE), std::size(modules)); ++i) {
        wchar_t path[1024] = {};
        GetModuleFileNameExW(process, modules[i], path, static_cast<DWORD>(std::size(path)));
        paths.insert(in_small_letters(path));
    }
    std::erase_if(paths, [](const auto& path) { return path.filename() == L"brasslet.exe"; });
    EXPECT_GT(paths.size(), 10U);
    return paths;
}

Names names_of(const Paths& paths)
{
    Names names;
    for (const auto& path : paths)
        names.insert(path.filename().wstring());
    return names;
}

// Those that the program, or libcurl for it, binds at the first call or loads by name.
Names bound_late()
{
    std::istringstream words(BRASSLET_BOUND_LATE);
    Names names;
    for (std::string word; words >> word;)
        names.insert(widen(word) + L".dll");
    return names;
}

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

    // A folder with a copy of the program, and with a decoy under each of the names.
    std::filesystem::path planted(const Names& names) const
    {
        const std::filesystem::path beside = wide_path(folder.path() + "/beside");
        std::filesystem::create_directories(beside);
        std::filesystem::copy_file(program_folder() + L"\\Brasslet.exe", beside / "Brasslet.exe");
        for (const std::wstring& name : names)
            std::filesystem::copy_file(test_files_folder() + L"\\decoy.dll", beside / name);
        return beside;
    }
    static Names marks_in(const std::filesystem::path& beside)
    {
        Names marks;
        for (const auto& entry : std::filesystem::directory_iterator(beside))
            if (entry.path().extension() == L".was-loaded") marks.insert(entry.path().stem().wstring());
        return marks;
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
    static Paths loaded_when_used(const RunningProgram& program)
    {
        use(program);
        return loaded_libraries(program.process());
    }

    const TestFolder folder;
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
    const std::filesystem::path beside = planted({L"dwmapi.dll", L"bcrypt.dll"});
    const HMODULE decoy = LoadLibraryExW((beside / L"dwmapi.dll").c_str(), nullptr, 0);
    EXPECT_NE(decoy, nullptr);
    FreeLibrary(decoy);
    EXPECT_EQ(marks_in(beside), Names{L"dwmapi.dll"});
}

TEST_F(Libraries, ThatAreBoundLateAreNeverThoseBesideTheProgram)
{
    const std::filesystem::path beside = planted(bound_late());
    const RunningProgram program(beside.wstring());
    const Names loaded = names_of(loaded_when_used(program));
    EXPECT_TRUE(std::ranges::includes(loaded, bound_late()));
    EXPECT_EQ(marks_in(beside), Names());
}

TEST_F(Libraries, OfAnyNameAreNeverThoseBesideTheProgram)
{
    if (is_wine())
        GTEST_SKIP()
            << "Wine has no list of libraries that are taken from Windows' own folder alone, and looks for what "
               "its own libraries import beside the program first.";
    const Names loaded = names_of(loaded_when_used(RunningProgram()));
    const std::filesystem::path beside = planted(loaded);
    const RunningProgram program(beside.wstring());
    use(program);
    EXPECT_EQ(marks_in(beside), Names());
}
