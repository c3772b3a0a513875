#include "plugin/crc32.h"

std::uint32_t crc32(std::string_view bytes)
{
    constexpr std::uint32_t kPolynomial = 0xEDB88320;
    std::uint32_t crc = ~std::uint32_t{0};
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? (crc >> 1) ^ kPolynomial : crc >> 1;
    }
    return ~crc;
}
