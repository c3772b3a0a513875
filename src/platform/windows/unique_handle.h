// One owner for every kernel handle: closed when its owner dies, never by hand.
#pragma once

#include <windows.h>

class UniqueHandle {
public:
    UniqueHandle() = default;
    explicit UniqueHandle(HANDLE handle) : m_handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    UniqueHandle(UniqueHandle&& other) noexcept : m_handle(other.release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept
    {
        if (this != &other) {
            close();
            m_handle = other.release();
        }
        return *this;
    }
    ~UniqueHandle() { close(); }

    explicit operator bool() const { return m_handle != nullptr; }
    HANDLE get() const { return m_handle; }
    HANDLE release()
    {
        const HANDLE handle = m_handle;
        m_handle = nullptr;
        return handle;
    }
    bool close()  // false when closing brought an error to light
    {
        const HANDLE handle = release();
        return handle == nullptr || CloseHandle(handle) != 0;
    }

private:
    HANDLE m_handle = nullptr;  // never INVALID_HANDLE_VALUE
};
