#include "platform/file_lock.h"

#include "platform/windows/unique_handle.h"
#include "platform/windows/windows_path.h"

FileLock::FileLock(const std::string& path)
{
    UniqueHandle file(CreateFileW(wide_path(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                                  nullptr));
    if (!file) return;
    OVERLAPPED first_byte{};
    if (LockFileEx(file.get(), LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &first_byte) != 0) m_file = file.release();
}

FileLock::~FileLock()
{
    if (m_file == nullptr) return;
    const UniqueHandle file(m_file);
    OVERLAPPED first_byte{};
    UnlockFileEx(file.get(), 0, 1, 0, &first_byte);
}
