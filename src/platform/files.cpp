#include "platform/files.h"

#include "platform/rewrite_plan.h"
#include "platform/unique_handle.h"
#include "platform/windows_path.h"

namespace {

constexpr std::size_t kLargestFile = std::size_t{64} * 1024 * 1024;  // far above every file that the program reads
constexpr DWORD kEveryShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Another program that looks at a file for a moment (a virus scanner, a backup, the wallet application) refuses us
// that long. Ten tries, with longer and longer pauses between them, wait about a second in all.
template <typename Attempt>
bool try_for_a_moment(Attempt attempt)
{
    for (DWORD tries = 1;; ++tries) {
        if (attempt()) return true;
        const DWORD error = GetLastError();
        if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED) return false;
        if (tries == 10) return false;
        Sleep(20 * tries);
    }
}

class FileContent {
public:
    explicit FileContent(HANDLE file) : m_file(file) {}

    std::optional<std::size_t> size() const
    {
        LARGE_INTEGER size;
        if (GetFileSizeEx(m_file, &size) == 0) return std::nullopt;
        if (size.QuadPart < 0 || size.QuadPart > static_cast<LONGLONG>(kLargestFile)) return std::nullopt;
        return static_cast<std::size_t>(size.QuadPart);
    }
    bool write_at(std::size_t offset, std::string_view bytes)
    {
        DWORD written = 0;
        return bytes.size() <= kLargestFile && move_to(offset) &&
               WriteFile(m_file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0 &&
               written == bytes.size();
    }
    bool cut_at(std::size_t size) { return move_to(size) && SetEndOfFile(m_file) != 0; }
    bool flush() { return FlushFileBuffers(m_file) != 0; }

private:
    bool move_to(std::size_t offset)
    {
        LARGE_INTEGER position;
        position.QuadPart = static_cast<LONGLONG>(offset);
        return SetFilePointerEx(m_file, position, nullptr, FILE_BEGIN) != 0;
    }

    HANDLE m_file;  // not owned
};

bool is_folder(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

FileStatus file_status(const std::string& path)
{
    if (GetFileAttributesW(wide_path(path).c_str()) != INVALID_FILE_ATTRIBUTES) return FileStatus::exists;
    switch (GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
        return FileStatus::missing;
    default:
        return FileStatus::unknown;
    }
}

bool create_folders(const std::string& path)
{
    const std::wstring wide = wide_path(path);
    if (is_folder(wide)) return true;
    for (std::size_t i = wide.find_first_of(L"\\/", 1); i != std::wstring::npos; i = wide.find_first_of(L"\\/", i + 1))
        CreateDirectoryW(wide.substr(0, i).c_str(), nullptr);
    CreateDirectoryW(wide.c_str(), nullptr);
    return is_folder(wide);
}

std::optional<std::string> read_file(const std::string& path)
{
    const UniqueHandle file(CreateFileW(wide_path(path).c_str(), GENERIC_READ, kEveryShare, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return std::nullopt;
    const auto size = FileContent(file.get()).size();
    if (!size) return std::nullopt;

    std::string bytes(*size + 1, '\0');  // one more, so that the end is seen in the usual first read
    std::size_t used = 0;
    for (;;) {
        DWORD read = 0;
        const auto room = static_cast<DWORD>(bytes.size() - used);
        if (ReadFile(file.get(), bytes.data() + used, room, &read, nullptr) == 0) return std::nullopt;
        if (read == 0) break;
        used += read;
        if (used > kLargestFile) return std::nullopt;
        if (used == bytes.size()) bytes.resize(bytes.size() * 2);  // it grew while it was read
    }
    bytes.resize(used);
    return bytes;
}

std::optional<std::string> read_held_file(const std::string& path)
{
    for (DWORD tries = 1;; ++tries) {
        SetLastError(ERROR_SUCCESS);
        auto bytes = read_file(path);
        if (bytes || GetLastError() != ERROR_SHARING_VIOLATION || tries == 10) return bytes;
        Sleep(20 * tries);
    }
}

bool write_file(const std::string& path, std::string_view bytes)
{
    UniqueHandle file(CreateFileW(wide_path(path).c_str(), GENERIC_WRITE, kEveryShare, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return false;
    FileContent content(file.get());
    const bool is_written = content.write_at(0, bytes) && content.flush();
    return file.close() && is_written;
}

bool rewrite_in_place(const std::string& path, std::string_view text)
{
    const std::wstring wide = wide_path(path);
    UniqueHandle file;
    const bool is_open = try_for_a_moment([&] {
        // Others may read meanwhile, but not write between our steps.
        file = UniqueHandle(CreateFileW(wide.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                        OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        return static_cast<bool>(file);
    });
    if (!is_open) return false;
    FileContent content(file.get());
    const bool is_rewritten = carry_out_rewrite(content, text);
    return file.close() && is_rewritten;
}

bool replace_file(const std::string& from, const std::string& to)
{
    const std::wstring wide_from = wide_path(from);
    const std::wstring wide_to = wide_path(to);
    return try_for_a_moment([&] {
        constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
        return MoveFileExW(wide_from.c_str(), wide_to.c_str(), kFlags) != 0;
    });
}

bool rename_file(const std::string& from, const std::string& to)
{
    return MoveFileExW(wide_path(from).c_str(), wide_path(to).c_str(), 0) != 0;
}

bool copy_file(const std::string& from, const std::string& to)
{
    return CopyFileW(wide_path(from).c_str(), wide_path(to).c_str(), FALSE) != 0;
}

bool remove_file(const std::string& path)
{
    return DeleteFileW(wide_path(path).c_str()) != 0;
}
