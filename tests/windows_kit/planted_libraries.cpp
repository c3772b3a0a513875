#include "windows_kit/planted_libraries.h"

#include "kit/windows/running_program.h"
#include "platform/text_conversion.h"

#include <gtest/gtest.h>

#include <psapi.h>

#include <algorithm>
#include <sstream>

std::wstring in_small_letters(std::wstring text)
{
    CharLowerW(text.data());
    return text;
}

LibraryPaths loaded_libraries(HANDLE process)
{
    HMODULE modules[1024] = {};
    DWORD size = 0;
    EXPECT_TRUE(EnumProcessModulesEx(process, modules, sizeof modules, &size, LIST_MODULES_ALL));
    LibraryPaths paths;
    for (DWORD i = 0; i < std::min<DWORD>(size / sizeof(HMODULE), std::size(modules)); ++i) {
        wchar_t path[1024] = {};
        GetModuleFileNameExW(process, modules[i], path, static_cast<DWORD>(std::size(path)));
        paths.insert(in_small_letters(path));
    }
    std::erase_if(paths, [](const auto& path) { return path.filename() == L"brasslet.exe"; });
    EXPECT_GT(paths.size(), 10U);
    return paths;
}

LibraryNames names_of(const LibraryPaths& paths)
{
    LibraryNames names;
    for (const auto& path : paths)
        names.insert(path.filename().wstring());
    return names;
}

LibraryNames bound_late()
{
    std::istringstream words(BRASSLET_BOUND_LATE);
    LibraryNames names;
    for (std::string word; words >> word;)
        names.insert(widen(word) + L".dll");
    return names;
}

void plant(const std::filesystem::path& folder, const LibraryNames& names)
{
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(program_folder() + L"\\Brasslet.exe", folder / "Brasslet.exe");
    for (const std::wstring& name : names)
        std::filesystem::copy_file(test_files_folder() + L"\\decoy.dll", folder / name);
}

LibraryNames loaded_decoys(const std::filesystem::path& folder)
{
    LibraryNames loaded;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == L".was-loaded") loaded.insert(entry.path().stem().wstring());
    return loaded;
}
