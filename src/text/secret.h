// Owners of secret bytes and strings that zero them on destruction.
//
// Copies that libraries make on the heap are zeroed by the program's operator delete (platform/wiping_heap.h). These
// types cover the rest: bytes inside an object or on the stack.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

// Zeroes `size` bytes; the compiler does not optimise it away.
void wipe(void* memory, std::size_t size);
void wipe(std::string& text);  // its whole capacity, then empties it

// Zeroes the stack below the caller, where library calls that have returned left their buffers.
void wipe_finished_stack();

// `Size` bytes, zero at first and zeroed on destruction. A move zeroes its source. Not copyable; see clone().
template <std::size_t Size>
class WipedBuffer {
public:
    WipedBuffer() = default;
    WipedBuffer(const WipedBuffer&) = delete;
    WipedBuffer& operator=(const WipedBuffer&) = delete;
    WipedBuffer(WipedBuffer&& other) noexcept : m_bytes(other.m_bytes) { other.clear(); }
    WipedBuffer& operator=(WipedBuffer&& other) noexcept
    {
        if (this != &other) {
            m_bytes = other.m_bytes;
            other.clear();
        }
        return *this;
    }
    ~WipedBuffer() { clear(); }

    WipedBuffer clone() const
    {
        WipedBuffer copy;
        copy.m_bytes = m_bytes;
        return copy;
    }
    void clear() { wipe(m_bytes.data(), Size); }

    std::uint8_t* data() { return m_bytes.data(); }
    const std::uint8_t* data() const { return m_bytes.data(); }
    static constexpr std::size_t size() { return Size; }
    std::span<std::uint8_t, Size> bytes() { return m_bytes; }
    std::span<const std::uint8_t, Size> bytes() const { return m_bytes; }

private:
    std::array<std::uint8_t, Size> m_bytes{};
};

// A string that is zeroed on destruction, also when it is short enough to lie inside the object.
class SecretText {
public:
    SecretText() = default;
    explicit SecretText(std::string text) : m_text(std::move(text)) { wipe(text); }
    SecretText(const SecretText&) = default;
    SecretText& operator=(const SecretText& other);
    SecretText(SecretText&& other) noexcept : m_text(std::move(other.m_text)) { other.clear(); }
    SecretText& operator=(SecretText&& other) noexcept;
    ~SecretText() { clear(); }

    void clear() { wipe(m_text); }
    bool empty() const { return m_text.empty(); }
    const std::string& text() const { return m_text; }

private:
    std::string m_text;
};
