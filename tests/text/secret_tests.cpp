#include "text/secret.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace {

// Constructs a T in memory that outlives it, to read what its destructor left there.
template <typename T>
struct Grave {
    alignas(T) unsigned char memory[sizeof(T)] = {};
    template <typename... Arguments>
    T* make(Arguments&&... arguments)
    {
        return new (memory) T(std::forward<Arguments>(arguments)...);
    }
    bool holds(const char* text) const
    {
        return std::search(memory, memory + sizeof memory, text, text + std::strlen(text)) != memory + sizeof memory;
    }
};

}  // namespace

TEST(Secret, ABufferIsZeroWhenItDied)
{
    Grave<WipedBuffer<32>> grave;
    auto* buffer = grave.make();
    std::memcpy(buffer->data(), "a secret of 32 bytes in memory..", 32);
    ASSERT_TRUE(grave.holds("secret"));
    buffer->~WipedBuffer();
    EXPECT_TRUE(std::all_of(grave.memory, grave.memory + 32, [](unsigned char byte) { return byte == 0; }));
}

TEST(Secret, AMovedBufferLeavesNothingBehind)
{
    WipedBuffer<4> first;
    first.data()[0] = 7;
    const WipedBuffer<4> second = std::move(first);
    EXPECT_EQ(second.data()[0], 7);
    EXPECT_EQ(first.data()[0], 0);  // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
}

TEST(Secret, ABufferMovedOverAnotherLeavesNothingBehind)
{
    WipedBuffer<4> first;
    first.data()[0] = 7;
    WipedBuffer<4> second;
    second = std::move(first);
    EXPECT_EQ(second.data()[0], 7);
    EXPECT_EQ(first.data()[0], 0);  // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
}

TEST(Secret, AShortTextIsWipedInsideTheObject)
{
    Grave<SecretText> grave;
    auto* text = grave.make("short one");
    ASSERT_TRUE(grave.holds("short one"));
    text->~SecretText();
    EXPECT_FALSE(grave.holds("short one"));
}

TEST(Secret, AMovedTextLeavesNothingBehind)
{
    Grave<SecretText> grave;
    auto* text = grave.make("short one");
    const SecretText moved = std::move(*text);
    EXPECT_EQ(moved.text(), "short one");
    EXPECT_FALSE(grave.holds("ort one"));  // std::string itself ends what was moved at its first byte
    text->~SecretText();
}

TEST(Secret, ATextMovedOverAnotherLeavesNothingBehind)
{
    Grave<SecretText> grave;
    auto* text = grave.make("short one");
    SecretText other(std::string("another"));
    other = std::move(*text);
    EXPECT_EQ(other.text(), "short one");
    EXPECT_FALSE(grave.holds("ort one"));  // std::string itself ends what was moved at its first byte
    text->~SecretText();
}

TEST(Secret, ATextIsWipedBeforeAnotherIsCopiedOverIt)
{
    Grave<SecretText> grave;
    auto* text = grave.make("short and secret");
    *text = SecretText(std::string("new"));
    EXPECT_FALSE(grave.holds("secret"));
    text->~SecretText();
}

TEST(Secret, WipingATextEmptiesItAndItsWholeCapacity)
{
    std::string text = "a text that is long enough for the heap";
    text.resize(3);
    const char* memory = text.data();
    const std::size_t capacity = text.capacity();
    wipe(text);
    EXPECT_TRUE(text.empty());
    EXPECT_TRUE(std::all_of(memory, memory + capacity, [](char c) { return c == 0; }));
}
