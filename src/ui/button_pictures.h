// The pictures that stand on buttons in place of a label, as lines and ellipses.
#pragma once

#include "ui/geometry.h"

#include <array>
#include <optional>

// The gear on the settings button.
struct Gear {
    Rect ring;  // box of the ellipse
    std::array<Line, 8> spokes;
};

// For a button that stands in `button`, in pixels at `dpi`.
Gear gear_on(const Rect& button, unsigned dpi, bool is_pressed);

// The eye on the button that shows the password.
struct Eye {
    Rect outline;  // boxes of ellipses
    Rect pupil;
    std::optional<Line> slash;  // through the eye while the password is hidden
};

// For a button that stands in `button`, in pixels at `dpi`.
Eye eye_on(const Rect& button, unsigned dpi, bool is_pressed, bool password_is_hidden);
