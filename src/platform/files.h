// Files, by narrow UTF-8 paths ("\" and "/" both separate). Nothing here throws; a failure is a false or empty result.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

enum class FileStatus { exists, missing, unknown };  // unknown: the question itself failed

[[nodiscard]] FileStatus file_status(const std::string& path);

bool create_folders(const std::string& path);  // with all missing parents; true when the folder is there afterwards

// The path without its last component, or empty when it has only one.
inline std::string parent_folder(const std::string& path)
{
    const std::size_t separator = path.find_last_of("\\/");
    return separator == std::string::npos ? std::string() : path.substr(0, separator);
}

// What one attempt to read a whole file found. A file that is there but cannot be read at this moment (held by another
// program, refused, too large) is unreadable, and must never be taken for a missing one.
enum class ReadStatus { read, missing, unreadable };

struct FileReading {
    ReadStatus status = ReadStatus::unreadable;
    std::string bytes;  // empty unless read
};

// The whole file, exactly as it stands, also while another program has it open; up to 64 MiB. The buffer is freed, and
// so wiped, by its owner; no stream keeps a second copy.
[[nodiscard]] FileReading read_whole_file(const std::string& path);

// The same for callers to whom a missing file and an unreadable one are alike.
inline std::optional<std::string> read_file(const std::string& path)
{
    FileReading reading = read_whole_file(path);
    return reading.status == ReadStatus::read ? std::optional(std::move(reading.bytes)) : std::nullopt;
}

// As read_file, but while another program keeps the file to itself, this tries again for a moment.
std::optional<std::string> read_held_file(const std::string& path);

// Whoever changes a file below tries again for about a second while another program looks at it (a virus scanner, a
// backup, the wallet application). What will not change by itself, a read-only file or missing rights, is not waited
// for.

// Truncates, then writes. True only when every byte is on the disk and the file was closed without an error.
[[nodiscard]] bool write_file(const std::string& path, std::string_view bytes);

// Rewrites a file in place such that a process killed at any moment leaves either the old text or the new one, each at
// most followed by blanks: never an empty file, never a cut one. For text whose readers skip trailing blanks (JSON). A
// disk that is full is noticed before the first byte of the old text is touched. A missing file is made. Others may
// read the file meanwhile, and write to it again as soon as the new text is in it: the disk is waited for afterwards.
[[nodiscard]] bool rewrite_in_place(const std::string& path, std::string_view text);

// As rewrite_in_place, for a file that is there (none is made) and only when `may_replace` says so of what it holds.
// That is read, judged and written through one handle, so that no other program's text comes between. `may_replace` is
// called at most once, on the caller's thread, and must not open the file.
[[nodiscard]] bool rewrite_existing(const std::string& path, std::string_view text,
                                    const std::function<bool(std::string_view current)>& may_replace);

// Moves `from` onto `to`, replacing it atomically, and returns when the change is on the disk.
[[nodiscard]] bool replace_file(const std::string& from, const std::string& to);

// As rewrite_in_place, but a file that holds the text already is left alone.
inline bool update_in_place(const std::string& path, std::string_view text)
{
    return read_file(path) == text || rewrite_in_place(path, text);
}

// Fails when `to` exists.
[[nodiscard]] bool rename_file(const std::string& from, const std::string& to);

// Overwrites `to`, and returns when the copy is on the disk; a copy that fails leaves no file there. Tried once.
[[nodiscard]] bool copy_file(const std::string& from, const std::string& to);

bool remove_file(const std::string& path);
