// Files, by narrow UTF-8 paths ("\" and "/" both separate). Nothing here throws; a failure is a false or empty result.
#pragma once

#include <optional>
#include <string>
#include <string_view>

enum class FileStatus { exists, missing, unknown };  // unknown: the question itself failed

FileStatus file_status(const std::string& path);

bool create_folders(const std::string& path);  // with all missing parents; true when the folder is there afterwards

// The path without its last component, or empty when it has only one.
inline std::string parent_folder(const std::string& path)
{
    const std::size_t separator = path.find_last_of("\\/");
    return separator == std::string::npos ? std::string() : path.substr(0, separator);
}

// The whole file, exactly as it stands, also while another program has it open. Empty when it cannot be opened or read,
// or is larger than 64 MiB. The buffer is freed, and so wiped, by its owner; no stream keeps a second copy.
std::optional<std::string> read_file(const std::string& path);

// As read_file, but while another program keeps the file to itself, this tries again for a moment.
std::optional<std::string> read_held_file(const std::string& path);

// Truncates, then writes. True only when every byte is on the disk and the file was closed without an error.
bool write_file(const std::string& path, std::string_view bytes);

// Rewrites a file in place such that a process killed at any moment leaves either the old text or the new one, each at
// most followed by blanks: never an empty file, never a cut one. For text whose readers skip trailing blanks (JSON). A
// disk that is full is noticed before the first byte of the old text is touched. A missing file is made. Others may
// read the file meanwhile; while one of them keeps us from writing, this tries again for a moment.
bool rewrite_in_place(const std::string& path, std::string_view text);

// Moves `from` onto `to`, replacing it atomically, and returns when the change is on the disk. Tries again for a
// moment when another program has the target open.
bool replace_file(const std::string& from, const std::string& to);

// As rewrite_in_place, but a file that holds the text already is left alone.
inline bool update_in_place(const std::string& path, std::string_view text)
{
    return read_file(path) == text || rewrite_in_place(path, text);
}

bool rename_file(const std::string& from, const std::string& to);  // fails when `to` exists
bool copy_file(const std::string& from, const std::string& to);    // overwrites `to`
bool remove_file(const std::string& path);
