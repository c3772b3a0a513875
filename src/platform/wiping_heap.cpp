#include "platform/wiping_heap.h"

#include <windows.h>

#include <malloc.h>

#include <cstdint>
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

namespace {

// Asks the program's new-handler for more memory until it gives up, as the standard's own operator new does.
template <typename Allocate>
void* allocate_or_throw(Allocate allocate)
{
    for (;;) {
        if (void* block = allocate()) return block;
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr) throw std::bad_alloc();
        handler();
    }
}

// The block that an aligned one lies in; its address stands just before the aligned one.
void*& block_around(void* aligned)
{
    return static_cast<void**>(aligned)[-1];
}

void* allocate_aligned(std::size_t size, std::size_t alignment)
{
    const std::size_t extra = alignment + sizeof(void*);  // an alignment is at least a pointer's here
    if (size > SIZE_MAX - extra) return nullptr;
    void* const block = wiping_malloc(size + extra);
    if (block == nullptr) return nullptr;
    const std::uintptr_t first = reinterpret_cast<std::uintptr_t>(block) + extra;
    void* const aligned = reinterpret_cast<void*>(first - first % alignment);
    block_around(aligned) = block;
    return aligned;
}

void free_aligned(void* aligned)
{
    if (aligned != nullptr) wiping_free(block_around(aligned));
}

}  // namespace

// All forms stand here, so that none of the standard library's own, which free without wiping, is ever linked in.
void* operator new(std::size_t size)
{
    return allocate_or_throw([size] { return wiping_malloc(size == 0 ? 1 : size); });
}

void* operator new(std::size_t size, std::align_val_t alignment)
{
    return allocate_or_throw([size, alignment] { return allocate_aligned(size, static_cast<std::size_t>(alignment)); });
}

void* operator new[](std::size_t size)
{
    return operator new(size);
}

void* operator new[](std::size_t size, std::align_val_t alignment)
{
    return operator new(size, alignment);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
try {
    return operator new(size);
} catch (...) {
    return nullptr;
}

void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
try {
    return operator new(size, alignment);
} catch (...) {
    return nullptr;
}

void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept
{
    return operator new(size, nothrow);
}

void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t& nothrow) noexcept
{
    return operator new(size, alignment, nothrow);
}

void operator delete(void* block) noexcept
{
    wiping_free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    wiping_free(block);
}

void operator delete(void* block, const std::nothrow_t&) noexcept
{
    wiping_free(block);
}

void operator delete(void* block, std::align_val_t) noexcept
{
    free_aligned(block);
}

void operator delete(void* block, std::size_t, std::align_val_t) noexcept
{
    free_aligned(block);
}

void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept
{
    free_aligned(block);
}

void operator delete[](void* block) noexcept
{
    wiping_free(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    wiping_free(block);
}

void operator delete[](void* block, const std::nothrow_t&) noexcept
{
    wiping_free(block);
}

void operator delete[](void* block, std::align_val_t) noexcept
{
    free_aligned(block);
}

void operator delete[](void* block, std::size_t, std::align_val_t) noexcept
{
    free_aligned(block);
}

void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept
{
    free_aligned(block);
}
