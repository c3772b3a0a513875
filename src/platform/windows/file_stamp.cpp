#include "platform/file_stamp.h"

#include "platform/windows/file_errors.h"
#include "platform/windows/windows_path.h"

namespace {

std::uint64_t joined(DWORD high, DWORD low)
{
    return static_cast<std::uint64_t>(high) << 32 | low;
}

std::int64_t ticks(const FILETIME& time)
{
    return static_cast<std::int64_t>(joined(time.dwHighDateTime, time.dwLowDateTime));
}

}  // namespace

// Nothing is opened for reading, which is what a virus scanner waits for.
FileStamp file_stamp(const std::string& path)
{
    FileStamp stamp;
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    stamp.asked = ticks(now);
    WIN32_FILE_ATTRIBUTE_DATA file;
    if (GetFileAttributesExW(wide_path(path).c_str(), GetFileExInfoStandard, &file) == 0) {
        if (is_missing(GetLastError())) stamp.status = FileStatus::missing;
        return stamp;
    }
    if ((file.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return stamp;
    stamp.status = FileStatus::exists;
    stamp.size = joined(file.nFileSizeHigh, file.nFileSizeLow);
    stamp.made = ticks(file.ftCreationTime);
    stamp.written = ticks(file.ftLastWriteTime);
    stamp.attributes = file.dwFileAttributes;
    return stamp;
}
