#include "platform/wiping_heap.h"

#include "text/secret.h"

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
    void* moved = wiping_malloc(size);
    if (moved == nullptr) return nullptr;
    const std::size_t held = malloc_usable_size(block);
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
    if (block != nullptr) wipe(block, malloc_usable_size(block));
    std::free(block);
}

void* operator new(std::size_t size)
{
    if (void* block = wiping_malloc(size == 0 ? 1 : size)) return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept
{
    wiping_free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    wiping_free(block);
}
