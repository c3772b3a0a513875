// Places in a window, in pixels, and how they scale: every size in the program is written for 96 dots per inch (DPI)
// and scaled to the monitor that the window is on.
#pragma once

#include <cstdint>
#include <optional>

struct Size {
    int width = 0;
    int height = 0;

    bool operator==(const Size&) const = default;
};

struct Point {
    int x = 0;
    int y = 0;

    bool operator==(const Point&) const = default;
};

struct Line {
    Point from;
    Point to;

    bool operator==(const Line&) const = default;
};

struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    int right() const { return x + width; }
    int bottom() const { return y + height; }
    int middle() const { return y + height / 2; }
    Point centre() const { return {x + width / 2, middle()}; }
    bool operator==(const Rect&) const = default;
};

inline constexpr unsigned kDefaultDpi = 96;

// `value` at 96 DPI as pixels at `dpi`, rounded to the nearest whole pixel, halves away from zero (as MulDiv does).
inline int scaled(int value, unsigned dpi)
{
    const std::int64_t product = static_cast<std::int64_t>(value) * dpi;
    const std::int64_t half = kDefaultDpi / 2;
    return static_cast<int>((product + (product < 0 ? -half : half)) / kDefaultDpi);
}

// The DPI to start with: what the monitor reported, or 96 when it reported nothing or less.
inline unsigned start_dpi(std::optional<unsigned> reported)
{
    return reported.value_or(kDefaultDpi) < kDefaultDpi ? kDefaultDpi : reported.value_or(kDefaultDpi);
}
