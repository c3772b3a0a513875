// The checksum of zip files.
#pragma once

#include <cstdint>
#include <string_view>

// CRC-32 as zip (PKWARE's APPNOTE) uses it: polynomial 0xEDB88320 reflected, all ones at the start, inverted at the
// end; 0 for no bytes at all.
std::uint32_t crc32(std::string_view bytes);
