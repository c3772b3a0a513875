#include "platform/file_stamp.h"

#include "kit/stand_in/native_path.h"
#include "kit/stand_in/stand_in.h"

#include <cerrno>
#include <ctime>

#include <sys/stat.h>

namespace {

std::int64_t ticks(const timespec& time)
{
    return static_cast<std::int64_t>(time.tv_sec) * 10'000'000 + time.tv_nsec / 100;
}

}  // namespace

FileStamp file_stamp(const std::string& path)
{
    tell_look(path, FileLook::asked);
    FileStamp stamp;
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    stamp.asked = ticks(now);
    struct stat file {};
    if (stand_in().files.stamps_fail) return stamp;
    if (lstat(native_path(path).c_str(), &file) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) stamp.status = FileStatus::missing;
        return stamp;
    }
    if (S_ISLNK(file.st_mode)) return stamp;
    stamp.status = FileStatus::exists;
    stamp.size = static_cast<std::uint64_t>(file.st_size);
    stamp.written = ticks(file.st_mtim);
    stamp.attributes = file.st_mode;
    return stamp;
}
