// That the program's operator delete is the one that is linked in, and zeroes what it frees.
#include "platform/wiping_heap.h"

#include "kit/windows/freed_memory.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <new>
#include <string>

namespace {

constexpr std::size_t kSize = kFreedSize;

template <typename Free>
bool leaves_something(void* block, Free free_block)
{
    std::memset(block, kFreedFiller, kSize);
    // Through a volatile, or the compiler sees a pointer that is used after it was freed; that is the point here.
    const volatile auto address = reinterpret_cast<std::uintptr_t>(block);
    free_block(block);
    return is_still_there(address);
}

}  // namespace

TEST(WipingHeap, PlainMemoryShowsThatTheTestCanSeeWhatStays)
{
    EXPECT_TRUE(leaves_something(HeapAlloc(GetProcessHeap(), 0, kSize),
                                 [](void* block) { HeapFree(GetProcessHeap(), 0, block); }));
}

TEST(WipingHeap, EveryFormOfDeleteZeroes)
{
    const auto form = [](auto allocate, auto free_block) { return leaves_something(allocate(), free_block); };
    const auto make = [] { return operator new(kSize); };
    const auto make_array = [] { return operator new[](kSize); };
    EXPECT_FALSE(form(make, [](void* block) { operator delete(block); }));
    EXPECT_FALSE(form(make, [](void* block) { operator delete(block, kSize); }));
    EXPECT_FALSE(form(make, [](void* block) { operator delete(block, std::nothrow); }));
    EXPECT_FALSE(form(make_array, [](void* block) { operator delete[](block); }));
    EXPECT_FALSE(form(make_array, [](void* block) { operator delete[](block, kSize); }));
    EXPECT_FALSE(form(make_array, [](void* block) { operator delete[](block, std::nothrow); }));
    EXPECT_FALSE(form([] { return operator new(kSize, std::nothrow); }, [](void* block) { operator delete(block); }));
}

TEST(WipingHeap, TheOldBufferOfATextThatGrewIsZero)
{
    std::string text(kSize, '\xA7');
    const auto old_buffer = reinterpret_cast<std::uintptr_t>(text.data());
    text.append(100'000, 'x');
    ASSERT_NE(reinterpret_cast<std::uintptr_t>(text.data()), old_buffer);
    EXPECT_FALSE(is_still_there(old_buffer));
}

TEST(WipingHeap, TheFunctionsForCLibrariesZeroWhatTheyFree)
{
    EXPECT_FALSE(leaves_something(wiping_malloc(kSize), wiping_free));
    EXPECT_FALSE(leaves_something(wiping_calloc(kSize, 1), wiping_free));
    EXPECT_FALSE(leaves_something(wiping_malloc(kSize), [](void* block) {
        void* const moved = wiping_realloc(block, 2 * kSize);
        ASSERT_NE(moved, block);
        EXPECT_EQ(static_cast<unsigned char*>(moved)[kSize - 1], 0xA7);
        wiping_free(moved);
    }));
    char* const copy = wiping_strdup("text");
    EXPECT_STREQ(copy, "text");
    wiping_free(copy);
    wiping_free(nullptr);
    EXPECT_EQ(wiping_realloc(wiping_malloc(1), 0), nullptr);
}

TEST(WipingHeap, MemoryThatThereIsNotIsRefused)
{
    volatile std::size_t huge = SIZE_MAX / 2;
    EXPECT_THROW(static_cast<void>(operator new(huge)), std::bad_alloc);
    EXPECT_EQ(operator new(huge, std::nothrow), nullptr);
}
