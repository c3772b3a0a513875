// By a file's stamp its reader can tell, without opening it again, that it still holds what was read.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <string>

// Times count steps of 100 ns from a moment that is the same for every stamp.
struct FileStamp {
    FileStatus status = FileStatus::unknown;  // what follows is said of a file that is there
    std::uint64_t size = 0;
    std::int64_t made = 0;  // 0 where the system does not say
    std::int64_t written = 0;
    std::uint32_t attributes = 0;
    std::int64_t asked = 0;  // the moment of the question, by the clock that the files' times come from
};

// One question by the file's name. Unknown also for a link, whose stamp would not be that of the file that is read.
[[nodiscard]] FileStamp file_stamp(const std::string& path);

// A change of the same size, shortly after the stamp was taken, may get the same time: file systems count in steps of
// up to two seconds (FAT).
inline constexpr std::int64_t kStampSettles = 30'000'000;

// Whether the file is at `now` what it was at `before`, which was taken before the file was read. A missing file is
// unchanged while it stays missing. False whenever that cannot be told: the question failed, the file had been written
// less than three seconds before it was read (or, by a clock that was set back, after that), or the clock was set back
// since. What no stamp shows is a change of the same size whose writer has not closed the file yet, or sets its time
// back to the old one.
[[nodiscard]] inline bool is_unchanged(const FileStamp& before, const FileStamp& now)
{
    if (before.status == FileStatus::missing) return now.status == FileStatus::missing;
    const bool is_there = before.status == FileStatus::exists && now.status == FileStatus::exists;
    const bool is_settled = before.written <= before.asked - kStampSettles && before.asked <= now.asked;
    return is_there && is_settled && before.size == now.size && before.made == now.made &&
           before.written == now.written && before.attributes == now.attributes;
}
