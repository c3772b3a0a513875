// The gear on the settings button.
#pragma once

#include "ui/geometry.h"

#include <array>

struct Gear {
    Rect ring;  // box of the ellipse
    std::array<Line, 8> spokes;
};

// For a button that stands in `button`, in pixels at `dpi`.
Gear gear_on(const Rect& button, unsigned dpi, bool is_pressed);
