#include "platform/files.h"

#include "kit/stand_in/native_path.h"
#include "kit/stand_in/stand_in.h"
#include "platform/rewrite_plan.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class FileContent {
public:
    FileContent(const std::string& path, int flags)
    {
        tell_look(path, FileLook::opened);
        m_file = open(native_path(path).c_str(), flags | O_CLOEXEC, 0600);
    }
    FileContent(const FileContent&) = delete;
    FileContent& operator=(const FileContent&) = delete;
    ~FileContent()
    {
        if (is_open()) close(m_file);
    }

    bool is_open() const { return m_file >= 0; }
    std::optional<std::size_t> size() const
    {
        struct stat status {};
        if (fstat(m_file, &status) != 0) return std::nullopt;
        return static_cast<std::size_t>(status.st_size);
    }
    bool write_at(std::size_t offset, std::string_view bytes) const
    {
        const std::size_t room = stand_in().files.largest_file.value_or(offset + bytes.size());
        const std::size_t fitting = room < offset ? 0 : std::min(bytes.size(), room - offset);
        const ssize_t written = pwrite(m_file, bytes.data(), fitting, static_cast<off_t>(offset));
        return written == static_cast<ssize_t>(bytes.size());
    }
    bool cut_at(std::size_t size) const { return ftruncate(m_file, static_cast<off_t>(size)) == 0; }

private:
    int m_file = -1;
};

void tell_use(const std::string& path)
{
    if (stand_in().files.on_use) stand_in().files.on_use(path);
}

// Tells of a change that is about to be made to the file. False when it cannot be made.
bool may_change(const std::string& path)
{
    tell_use(path);
    return !stand_in().files.refuses || !stand_in().files.refuses(path);
}

FileStatus status_of(const std::string& path)
{
    struct stat status {};
    if (stat(native_path(path).c_str(), &status) == 0) return FileStatus::exists;
    return errno == ENOENT || errno == ENOTDIR ? FileStatus::missing : FileStatus::unknown;
}

std::optional<std::string> content_of(const std::string& path)
{
    std::error_code error;
    if (std::filesystem::is_directory(native_path(path), error)) return std::nullopt;
    std::ifstream file(native_path(path), std::ios::binary);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

}  // namespace

std::string native_path(const std::string& path)
{
    if (path.find('\0') != std::string::npos) return {};
    std::string native = path;
    for (char& c : native)
        if (c == '\\') c = '/';
    return native;
}

FileStatus file_status(const std::string& path)
{
    tell_look(path, FileLook::asked);
    return status_of(path);
}

bool create_folders(const std::string& path)
{
    std::error_code error;
    std::filesystem::create_directories(native_path(path), error);
    return std::filesystem::is_directory(native_path(path), error);
}

FileReading read_whole_file(const std::string& path)
{
    tell_use(path);
    tell_look(path, FileLook::opened);
    if (status_of(path) == FileStatus::missing) return {ReadStatus::missing, {}};
    auto bytes = content_of(path);
    if (stand_in().files.reads_fail || !bytes) return {ReadStatus::unreadable, {}};
    return {ReadStatus::read, std::move(*bytes)};
}

std::optional<std::string> read_held_file(const std::string& path)
{
    return read_file(path);
}

bool write_file(const std::string& path, std::string_view bytes)
{
    if (!may_change(path) || stand_in().files.writes_fail) return false;
    const FileContent file(path, O_WRONLY | O_CREAT | O_TRUNC);
    if (!file.is_open()) return false;
    stand_in().files.written.push_back(path);
    return file.write_at(0, bytes);
}

bool rewrite_in_place(const std::string& path, std::string_view text)
{
    if (!may_change(path) || stand_in().files.writes_fail) return false;
    const FileContent file(path, O_RDWR | O_CREAT);
    if (!file.is_open()) return false;
    stand_in().files.written.push_back(path);
    return carry_out_rewrite(file, text);
}

bool rewrite_existing(const std::string& path, std::string_view text,
                      const std::function<bool(std::string_view current)>& may_replace)
{
    if (!may_change(path) || stand_in().files.writes_fail || stand_in().files.reads_fail) return false;
    const FileContent file(path, O_RDWR);
    const auto current = content_of(path);
    if (!file.is_open() || !current || !may_replace(*current)) return false;
    stand_in().files.written.push_back(path);
    return carry_out_rewrite(file, text);
}

bool replace_file(const std::string& from, const std::string& to)
{
    if (!may_change(to) || stand_in().files.replaces_fail) return false;
    stand_in().files.written.push_back(to);
    return std::rename(native_path(from).c_str(), native_path(to).c_str()) == 0;
}

bool rename_file(const std::string& from, const std::string& to)
{
    if (!may_change(from) || stand_in().files.renames_fail || status_of(to) != FileStatus::missing) return false;
    return std::rename(native_path(from).c_str(), native_path(to).c_str()) == 0;
}

bool copy_file(const std::string& from, const std::string& to)
{
    if (!may_change(from) || stand_in().files.copies_fail) return false;
    std::error_code error;
    constexpr auto kOverwrite = std::filesystem::copy_options::overwrite_existing;
    return std::filesystem::copy_file(native_path(from), native_path(to), kOverwrite, error);
}

bool remove_file(const std::string& path)
{
    return may_change(path) && unlink(native_path(path).c_str()) == 0;
}
