#include "kit/test_folder.h"

#include "platform/files.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <stdexcept>

#ifdef _WIN32
#include "platform/environment.h"
#include "platform/windows/unique_handle.h"

#include <windows.h>
#else
#include "kit/stand_in/stand_in.h"

#include <unistd.h>
#endif

namespace {

std::filesystem::path system_path(const std::string& utf8)
{
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string utf8_text(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::string fresh_root()
{
    static int count = 0;
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
#ifdef _WIN32
    const auto process = static_cast<long>(GetCurrentProcessId());
#else
    const auto process = static_cast<long>(getpid());
#endif
    const std::string name =
        "brasslet-" + std::to_string(process) + "-" + std::to_string(ticks) + "-" + std::to_string(count++);
    return utf8_text(std::filesystem::temp_directory_path() / name);
}

}  // namespace

#ifdef _WIN32

namespace {

// Down to the 100 ns in which Windows counts: std::filesystem sets whole seconds.
bool set_back_by_an_hour(const std::filesystem::path& path)
{
    constexpr std::uint64_t kHour = 36'000'000'000;
    const UniqueHandle file(
        CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    FILETIME written;
    if (!file || GetFileTime(file.get(), nullptr, nullptr, &written) == 0) return false;
    const std::uint64_t ticks = (std::uint64_t{written.dwHighDateTime} << 32 | written.dwLowDateTime) - kHour;
    written = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    return SetFileTime(file.get(), nullptr, nullptr, &written) != 0;
}

}  // namespace

void use_local_app_data(const std::string& folder)
{
    SetEnvironmentVariableW(L"LOCALAPPDATA", folder.empty() ? nullptr : system_path(folder).c_str());
}

std::string test_program_folder()
{
    return executable_folder();
}

#else

namespace {

bool set_back_by_an_hour(const std::filesystem::path& path)
{
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) - std::chrono::hours(1));
    return true;
}

}  // namespace

void use_local_app_data(const std::string& folder)
{
    stand_in().local_app_data = folder;
}

std::string test_program_folder()
{
    return utf8_text(std::filesystem::read_symlink("/proc/self/exe").parent_path());
}

#endif

TestFolder::TestFolder()
    : m_root(fresh_root()), m_path(m_root + "/Zo\xC3\xAB \xE7\x94\xA8\xE6\x88\xB7 \xCE\xA9mega/Local")
{
    std::filesystem::create_directories(system_path(m_path));
    use_local_app_data(m_path);
}

TestFolder::~TestFolder()
{
    std::error_code error;
    std::filesystem::remove_all(system_path(m_root), error);
}

void TestFolder::write(const std::string& name, const std::string& bytes) const
{
    const std::string path = data() + "/" + name;
    create_folders(parent_folder(path));
    if (!write_file(path, bytes)) throw std::runtime_error("cannot write " + path);
}

std::string TestFolder::read(const std::string& name) const
{
    return read_file(data() + "/" + name).value_or("");
}

bool TestFolder::has(const std::string& name) const
{
    return file_status(data() + "/" + name) == FileStatus::exists;
}

void TestFolder::age(const std::string& name) const
{
    const std::filesystem::path path = system_path(m_path + "/Corvane/" + name);
    if (!set_back_by_an_hour(path)) throw std::runtime_error("cannot age " + name);
}
