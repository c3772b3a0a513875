#include "platform/file_lock.h"

#include "kit/stand_in/native_path.h"
#include "kit/stand_in/stand_in.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

// Like the lock of Windows, flock's belongs to the open file: two FileLocks of one process exclude each other too.
FileLock::FileLock(const std::string& path)
{
    tell_look(path, FileLook::opened);
    const int file = open(native_path(path).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0) return;
    int result = 0;
    do
        result = flock(file, LOCK_EX);
    while (result != 0 && errno == EINTR);
    if (result != 0) {
        close(file);
        return;
    }
    m_file = reinterpret_cast<void*>(static_cast<std::intptr_t>(file) + 1);  // 0 is a valid descriptor
}

FileLock::~FileLock()
{
    if (m_file != nullptr) close(static_cast<int>(reinterpret_cast<std::intptr_t>(m_file) - 1));
}
