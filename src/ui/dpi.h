// Every size in the program is written for 96 dots per inch and scaled to the monitor that the window is on.
#pragma once

#include <optional>

inline constexpr unsigned kDefaultDpi = 96;

// `value` at 96 DPI as pixels at `dpi`, rounded to the nearest whole pixel, halves away from zero (as MulDiv does).
int scaled(int value, unsigned dpi);

// The DPI to start with: what the monitor reported, or 96 when it reported nothing or less.
unsigned start_dpi(std::optional<unsigned> reported);
