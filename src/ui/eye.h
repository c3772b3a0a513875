// The eye on the button that shows the password.
#pragma once

#include "ui/geometry.h"

#include <optional>

struct Eye {
    Rect outline;  // boxes of ellipses
    Rect pupil;
    std::optional<Line> slash;  // through the eye while the password is hidden
};

// For a button that stands in `button`, in pixels at `dpi`.
Eye eye_on(const Rect& button, unsigned dpi, bool is_pressed, bool password_is_hidden);
