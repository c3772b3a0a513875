// What still stands in memory that was freed.
#pragma once

#include <cstddef>
#include <cstdint>

inline constexpr std::size_t kFreedSize = 4000;      // bytes of the blocks that are looked at
inline constexpr unsigned char kFreedFiller = 0xA7;  // what they held

// Whether the block of kFreedSize bytes that began there still holds kFreedFiller. Read through the system, so that a
// block whose page is gone does not crash.
bool is_still_there(std::uintptr_t freed);
