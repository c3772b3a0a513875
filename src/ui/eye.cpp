#include "ui/eye.h"

#include "ui/dpi.h"
#include "ui/picture_geometry.h"

namespace {

constexpr int kHalfWidth = 9;
constexpr int kHalfHeight = 6;
constexpr int kPupilRadius = 3;

}  // namespace

Eye eye_on(const Rect& button, unsigned dpi, bool is_pressed, bool password_is_hidden)
{
    const Point centre = picture_centre(button, is_pressed);
    const int half_width = scaled(kHalfWidth, dpi);
    const int half_height = scaled(kHalfHeight, dpi);
    const int pupil = scaled(kPupilRadius, dpi);
    Eye eye{ellipse_box(centre, half_width, half_height), ellipse_box(centre, pupil, pupil), std::nullopt};
    if (password_is_hidden) {
        eye.slash =
            Line{{centre.x - half_width, centre.y + half_height}, {centre.x + half_width, centre.y - half_height}};
    }
    return eye;
}
