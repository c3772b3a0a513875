#include "platform/wiping_heap.h"

#include <windows.h>

#include <malloc.h>

#include <cstdlib>
#include <cstring>
#include <new>

void* wiping_malloc(std::size_t size)
{
    return std::malloc(size);
}

void* wiping_calloc(std::size_t count, std::size_t size)
{
    return std::calloc(count, size);
}

void* wiping_realloc(void* block, std::size_t size)
{
    if (block == nullptr) return wiping_malloc(size);
    if (size == 0) {
        wiping_free(block);
        return nullptr;
    }
    // Never the library's own: it may move the block and leave the old one as it was.
    void* moved = wiping_malloc(size);
    if (moved == nullptr) return nullptr;
    const std::size_t held = _msize(block);
    std::memcpy(moved, block, held < size ? held : size);
    wiping_free(block);
    return moved;
}

char* wiping_strdup(const char* text)
{
    const std::size_t size = std::strlen(text) + 1;
    auto* copy = static_cast<char*>(wiping_malloc(size));
    if (copy != nullptr) std::memcpy(copy, text, size);
    return copy;
}

void wiping_free(void* block)
{
    if (block == nullptr) return;
    SecureZeroMemory(block, _msize(block));
    std::free(block);
}

// The array, nothrow and sized forms of the standard library end in these. The aligned forms do not, but nothing in
// this program is aligned more strictly than malloc's blocks are.
void* operator new(std::size_t size)
{
    for (;;) {
        if (void* block = wiping_malloc(size == 0 ? 1 : size)) return block;
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr) throw std::bad_alloc();
        handler();
    }
}

void operator delete(void* block) noexcept
{
    wiping_free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    wiping_free(block);
}
