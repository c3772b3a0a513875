#include "ui/geometry.h"

#include <cstdint>

int scaled(int value, unsigned dpi)
{
    const std::int64_t product = static_cast<std::int64_t>(value) * dpi;
    const std::int64_t half = kDefaultDpi / 2;
    return static_cast<int>((product + (product < 0 ? -half : half)) / kDefaultDpi);
}

unsigned start_dpi(std::optional<unsigned> reported)
{
    return reported.value_or(kDefaultDpi) < kDefaultDpi ? kDefaultDpi : reported.value_or(kDefaultDpi);
}
