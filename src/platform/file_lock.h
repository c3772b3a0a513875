// The exclusive lock on the first byte of a file, by which two programs take turns.
#pragma once

#include <string>

class FileLock {
public:
    // Opens (or makes) the file and waits, without a time limit, until nobody else holds its first byte. When the file
    // cannot be opened or locked nothing is held, and nobody is told: is_held() is false.
    explicit FileLock(const std::string& path);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

    bool is_held() const { return m_file != nullptr; }

private:
    void* m_file = nullptr;
};
