// That libcrypto wipes what it frees, by the functions that the program has given it.
#include "kit/windows/freed_memory.h"

#include <gtest/gtest.h>

#include <openssl/crypto.h>

#include <cstdint>
#include <cstring>

namespace {

std::uintptr_t filled_block(void*& block)
{
    block = OPENSSL_malloc(kFreedSize);
    std::memset(block, kFreedFiller, kFreedSize);
    // Through a volatile, or the compiler sees a pointer that is used after it was freed; that is the point here.
    const volatile auto address = reinterpret_cast<std::uintptr_t>(block);
    return address;
}

}  // namespace

TEST(LibcryptoMemory, AFreedBlockIsZero)
{
    void* block = nullptr;
    const std::uintptr_t address = filled_block(block);
    ASSERT_TRUE(is_still_there(address));
    OPENSSL_free(block);
    EXPECT_FALSE(is_still_there(address));
}

TEST(LibcryptoMemory, ABlockThatWasMovedLeavesNothing)
{
    void* block = nullptr;
    const std::uintptr_t address = filled_block(block);
    void* const moved = OPENSSL_realloc(block, 4 * kFreedSize);
    ASSERT_NE(reinterpret_cast<std::uintptr_t>(moved), address);
    EXPECT_EQ(static_cast<unsigned char*>(moved)[kFreedSize - 1], kFreedFiller);
    EXPECT_FALSE(is_still_there(address));
    OPENSSL_free(moved);
}
