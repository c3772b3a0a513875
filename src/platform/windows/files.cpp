#include "platform/files.h"

#include "platform/rewrite_plan.h"
#include "platform/windows/file_errors.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/windows_path.h"

namespace {

constexpr std::size_t kLargestFile = std::size_t{64} * 1024 * 1024;  // far above every file that the program reads
constexpr DWORD kEveryShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Windows says "access denied" both for what passes (the target of a move is open elsewhere, a deleted file is still
// open) and for what stays: a read-only file, a folder, missing rights. Only what stays also refuses somebody who asks
// for the same with every share; whose attributes cannot be read is being deleted.
bool is_denied_for_good(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return false;
    if ((attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) return true;
    const UniqueHandle file(
        CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, kEveryShare, nullptr, OPEN_EXISTING, 0, nullptr));
    return !file && GetLastError() == ERROR_ACCESS_DENIED;
}

// Another program that looks at a file for a moment (a virus scanner, a backup, the wallet application) refuses us
// that long. Ten tries, with longer and longer pauses between them, wait about a second in all. `path` is the file that
// may be refused.
template <typename Attempt>
bool try_for_a_moment(const std::wstring& path, Attempt attempt)
{
    for (DWORD tries = 1;; ++tries) {
        if (attempt()) return true;
        const DWORD error = GetLastError();
        if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED) return false;
        if (tries == 10 || (error == ERROR_ACCESS_DENIED && is_denied_for_good(path))) return false;
        Sleep(20 * tries);
    }
}

bool open_for_a_moment(UniqueHandle& file, const std::wstring& path, DWORD access, DWORD share, DWORD disposition)
{
    return try_for_a_moment(path, [&] {
        file = UniqueHandle(
            CreateFileW(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
        return static_cast<bool>(file);
    });
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
    // Nothing when a read fails or the file is larger than kLargestFile.
    std::optional<std::string> read_all()
    {
        const auto expected = size();
        if (!expected || !move_to(0)) return std::nullopt;
        std::string bytes(*expected + 1, '\0');  // one more, so that the end is seen in the usual first read
        std::size_t used = 0;
        for (;;) {
            DWORD read = 0;
            const auto room = static_cast<DWORD>(bytes.size() - used);
            if (ReadFile(m_file, bytes.data() + used, room, &read, nullptr) == 0) return std::nullopt;
            if (read == 0) break;
            used += read;
            if (used > kLargestFile) return std::nullopt;
            if (used == bytes.size()) bytes.resize(bytes.size() * 2);  // it grew while it was read
        }
        bytes.resize(used);
        return bytes;
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

// Waits until the file's bytes are on the disk, while everybody may use it: a flush takes its time, and nobody's save
// shall fail over it. A file that somebody else writes at this moment is flushed by him.
bool flush_file(const std::wstring& path)
{
    const UniqueHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, kEveryShare, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) return GetLastError() == ERROR_SHARING_VIOLATION;
    return FlushFileBuffers(file.get()) != 0;
}

// Others may read meanwhile, but not write between our steps.
bool rewrite(const std::wstring& path, DWORD disposition, std::string_view text,
             const std::function<bool(FileContent&)>& may_replace)
{
    UniqueHandle file;
    if (!open_for_a_moment(file, path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, disposition)) return false;
    FileContent content(file.get());
    const bool is_rewritten = may_replace(content) && carry_out_rewrite(content, text);
    return file.close() && is_rewritten && flush_file(path);
}

}  // namespace

FileStatus file_status(const std::string& path)
{
    if (GetFileAttributesW(wide_path(path).c_str()) != INVALID_FILE_ATTRIBUTES) return FileStatus::exists;
    return is_missing(GetLastError()) ? FileStatus::missing : FileStatus::unknown;
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

FileReading read_whole_file(const std::string& path)
{
    const UniqueHandle file(CreateFileW(wide_path(path).c_str(), GENERIC_READ, kEveryShare, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return {is_missing(GetLastError()) ? ReadStatus::missing : ReadStatus::unreadable, {}};
    auto bytes = FileContent(file.get()).read_all();
    if (!bytes) return {ReadStatus::unreadable, {}};
    return {ReadStatus::read, std::move(*bytes)};
}

std::optional<std::string> read_held_file(const std::string& path)
{
    UniqueHandle file;
    if (!open_for_a_moment(file, wide_path(path), GENERIC_READ, kEveryShare, OPEN_EXISTING)) return std::nullopt;
    return FileContent(file.get()).read_all();
}

bool write_file(const std::string& path, std::string_view bytes)
{
    UniqueHandle file;
    if (!open_for_a_moment(file, wide_path(path), GENERIC_WRITE, kEveryShare, CREATE_ALWAYS)) return false;
    FileContent content(file.get());
    const bool is_written = content.write_at(0, bytes) && content.flush();
    return file.close() && is_written;
}

bool rewrite_in_place(const std::string& path, std::string_view text)
{
    return rewrite(wide_path(path), OPEN_ALWAYS, text, [](FileContent&) { return true; });
}

bool rewrite_existing(const std::string& path, std::string_view text,
                      const std::function<bool(std::string_view current)>& may_replace)
{
    return rewrite(wide_path(path), OPEN_EXISTING, text, [&may_replace](FileContent& content) {
        const auto current = content.read_all();
        return current && may_replace(*current);
    });
}

bool replace_file(const std::string& from, const std::string& to)
{
    const std::wstring wide_from = wide_path(from);
    const std::wstring wide_to = wide_path(to);
    return try_for_a_moment(wide_to, [&] {
        constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
        return MoveFileExW(wide_from.c_str(), wide_to.c_str(), kFlags) != 0;
    });
}

bool rename_file(const std::string& from, const std::string& to)
{
    const std::wstring wide_from = wide_path(from);
    const std::wstring wide_to = wide_path(to);
    return try_for_a_moment(
        wide_from, [&] { return MoveFileExW(wide_from.c_str(), wide_to.c_str(), MOVEFILE_WRITE_THROUGH) != 0; });
}

bool copy_file(const std::string& from, const std::string& to)
{
    const std::wstring wide_to = wide_path(to);
    if (CopyFileW(wide_path(from).c_str(), wide_to.c_str(), FALSE) != 0) {
        SetFileAttributesW(wide_to.c_str(), FILE_ATTRIBUTE_NORMAL);  // those of a read-only source come along
        if (flush_file(wide_to)) return true;
    }
    DeleteFileW(wide_to.c_str());
    return false;
}

bool remove_file(const std::string& path)
{
    const std::wstring wide = wide_path(path);
    return try_for_a_moment(wide, [&wide] { return DeleteFileW(wide.c_str()) != 0; });
}
